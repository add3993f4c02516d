#pragma once

/**
 * @file
 * @brief The data whose transforms' bits are promised; the same on every machine.
 *
 * Nothing here rounds: parts are integers times powers of two.
 */

#include <cmath>
#include <cstdint>
#include <vector>

namespace same_bits {

enum class Data {
    NearOne,          ///< between -1 and 1
    OfWideExponents,  ///< 2^-40 to 2^40 times that, so that roundings of every size meet
    Subnormal,        ///< near the smallest numbers
};
inline constexpr Data kData[] = {Data::NearOne, Data::OfWideExponents, Data::Subnormal};
/** Signals of each kind: a rounding too many shows in about one of three. */
inline constexpr int kSignals = 16;

/** Calls `use(data, number)` for all of them. */
template <class Use>
void for_each_signal(Use use) {
    for (const Data data : kData) {
        for (int number = 0; number < kSignals; ++number) use(data, number);
    }
}

/** SplitMix64. */
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

  private:
    std::uint64_t state_;
};

template <class Real>
std::vector<Real> parts(std::size_t count, Data data, int number) {
    constexpr int kDigits = sizeof(Real) == 4 ? 24 : 53;
    constexpr int kSmallest = sizeof(Real) == 4 ? -149 : -1074;
    Random random((std::uint64_t{count} << 32) + static_cast<std::uint64_t>(number));
    std::vector<Real> values;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t bits = random.next();
        const auto magnitude = static_cast<double>(bits >> (64 - kDigits));
        int exponent = -kDigits;
        if (data == Data::OfWideExponents) exponent += static_cast<int>(bits % 81) - 40;
        if (data == Data::Subnormal) exponent = kSmallest;
        const double value = data == Data::Subnormal
                                 ? std::ldexp(std::fmod(magnitude, 64), exponent)
                                 : std::ldexp(magnitude, exponent);
        values.push_back(static_cast<Real>((random.next() & 1) != 0 ? -value : value));
    }
    return values;
}

}  // namespace same_bits
