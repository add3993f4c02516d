#include "same_bits/dct4_hashes.hpp"

#include <memory>

#include "support/dct4_interface.hpp"

namespace same_bits {
namespace {

using qsvgen_test::Dct4Interface;
using qsvgen_test::RealDouble;
using qsvgen_test::RealSingle;

constexpr std::int32_t kLongestInAllPlaces = 32;
constexpr std::int32_t kLongestOfAllData = 1 << 12;
constexpr std::int32_t kLongestOfTwoSignals = 1 << 20;

/** The longest plans of both types take as much memory. */
template <class E>
constexpr std::int32_t kLongest = kLongestDct4 / (sizeof(typename E::Real) / 4);

template <class E>
struct FreePlan {
    void operator()(typename Dct4Interface<E>::Plan* plan) const { Dct4Interface<E>::kFree(plan); }
};

/** Null where no plan can be made. */
template <class E>
auto made_plan(std::int32_t length) {
    typename Dct4Interface<E>::Plan* plan = nullptr;
    Dct4Interface<E>::kInitAlloc(&plan, length);
    return std::unique_ptr<typename Dct4Interface<E>::Plan, FreePlan<E>>(plan);
}

template <class E>
std::string name_of(std::int32_t length) {
    return std::string("qsvgDCT4_") + E::kSuffix + "_of_" + std::to_string(length);
}

template <class E>
std::uint64_t hash_in_all_places(std::int32_t length) {
    const auto plan = made_plan<E>(length);
    const auto size = static_cast<std::size_t>(length);
    return hash_of<E>(size, size, [&](const auto* src, auto* dst, std::int32_t) {
        return Dct4Interface<E>::kRun(src, dst, plan.get());
    });
}

/** Calls runs of one plan with signals, in place and not. */
template <class E>
class Runs {
  public:
    explicit Runs(std::int32_t length)
        : length_(static_cast<std::size_t>(length)), plan_(made_plan<E>(length)) {}

    void add(Data data, int number) {
        const std::vector<Real> x = parts<Real>(length_, data, number);
        std::vector<Real> y(length_);
        agree_ = agree_ && Dct4Interface<E>::kRun(x.data(), y.data(), plan_.get()) == qsvStatusOk;
        qsvgen_test::PlacedArray<Real> array(length_, 4);
        array.set(x);
        agree_ = agree_ &&
                 Dct4Interface<E>::kRun(array.data(), array.data(), plan_.get()) == qsvStatusOk &&
                 std::memcmp(array.data(), y.data(), length_ * sizeof(Real)) == 0;
        hash_.add(y.data(), length_ * sizeof(Real));
    }
    /** 0 where calls disagree. */
    std::uint64_t hash() const { return agree_ ? hash_.value() : 0; }

  private:
    using Real = typename E::Real;

    std::size_t length_;
    decltype(made_plan<E>(0)) plan_;
    Fnv hash_;
    bool agree_ = true;
};

template <class E>
std::uint64_t hash_of_all_data(std::int32_t length) {
    Runs<E> runs(length);
    for_each_signal([&](Data data, int number) { runs.add(data, number); });
    return runs.hash();
}

// Without the small ones, whose arithmetic takes a hundred times as long.
template <class E>
std::uint64_t hash_of_two_signals(std::int32_t length) {
    Runs<E> runs(length);
    runs.add(Data::NearOne, 0);
    runs.add(Data::OfWideExponents, 0);
    return runs.hash();
}

/** Multiples of 2^-23 from -1 to 1. */
template <class Real>
std::vector<Real> dense_signal(std::int32_t length) {
    Random random(static_cast<std::uint64_t>(length));
    std::vector<Real> x(static_cast<std::size_t>(length));
    for (Real& value : x) {
        const auto digits = static_cast<std::int32_t>(random.next() >> 40);
        value = static_cast<Real>(digits - (1 << 23)) * Real(0x1p-23);
    }
    return x;
}

/** 0 where no plan can be made. */
template <class E>
std::uint64_t hash_of_one_in_place(std::int32_t length) {
    const auto plan = made_plan<E>(length);
    auto x = dense_signal<typename E::Real>(length);
    if (Dct4Interface<E>::kRun(x.data(), x.data(), plan.get()) != qsvStatusOk) return 0;
    Fnv hash;
    hash.add(x.data(), x.size() * sizeof(x.front()));
    return hash.value();
}

template <class E>
void add_short(Hashes& hashes, std::int32_t longest) {
    for (std::int32_t length = 2; length <= std::min(longest, kLongestOfAllData); length *= 2) {
        hashes[name_of<E>(length)] = length <= kLongestInAllPlaces ? hash_in_all_places<E>(length)
                                                                   : hash_of_all_data<E>(length);
    }
}

template <class E>
void add_long(Hashes& hashes, std::int32_t longest) {
    const std::int32_t last = std::min(longest, kLongest<E>);
    for (std::int32_t length = 2 * kLongestOfAllData; length <= last; length *= 2) {
        hashes[name_of<E>(length)] = length <= kLongestOfTwoSignals
                                         ? hash_of_two_signals<E>(length)
                                         : hash_of_one_in_place<E>(length);
    }
}

}  // namespace

void add_short_dct4(Hashes& hashes, std::int32_t longest) {
    add_short<RealSingle>(hashes, longest);
    add_short<RealDouble>(hashes, longest);
}

void add_long_dct4(Hashes& hashes, std::int32_t longest) {
    add_long<RealSingle>(hashes, longest);
    add_long<RealDouble>(hashes, longest);
}

}  // namespace same_bits
