/** @file @brief Walsh-Hadamard transforms by qsvgen.hpp, with work buffers and without. */

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <utility>

#include "cpp/support/front_end.hpp"
#include "support/guarded_page.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class E>
using Signal = std::vector<typename E::Real>;

template <class E>
class CppWalshHadamard : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Work = qsvgen::WalshHadamardWork<Real>;

    /** By the function of C, which takes memory for itself. */
    static Signal<E> expected(const Signal<E>& x, int order, qsvgen::Scale scale) {
        Signal<E> y(x.size());
        EXPECT_EQ(qsvStatusOk,
                  wht<E>(x.data(), y.data(), order, static_cast<std::int32_t>(scale), nullptr));
        return y;
    }

    template <class Visit>
    static void for_each_order(const Visit& visit) {
        [&]<int... Before>(std::integer_sequence<int, Before...>) {
            (visit.template operator()<Before + 1>(), ...);
        }
        (std::make_integer_sequence<int, kHighestOrder>{});
    }

    std::unique_ptr<Work> work_ = std::make_unique<Work>();
};
TYPED_TEST_SUITE(CppWalshHadamard, RealTypes, ElementNames);

TYPED_TEST(CppWalshHadamard, GivesTheBitsOfItsKernelForEveryOrderAndScale) {
    using Real = typename TypeParam::Real;
    this->for_each_order([&]<int K>() {
        constexpr std::size_t kSize = std::size_t{1} << K;
        const auto x = random_signal<TypeParam>(kSize, 1);
        const std::span<const Real, kSize> in(x);
        for (const qsvgen::Scale scale : kScales) {
            const auto expected = this->expected(x, K, scale);
            Signal<TypeParam> y(kSize);
            const std::span<Real, kSize> out(y);
            EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard<K>(in, out, scale)) << K;
            EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << K;
            y.assign(kSize, 0);
            EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard<K>(in, out, *this->work_, scale)) << K;
            EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << K << ", work buffer";
            y.assign(kSize, 0);
            EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard<K>(x, y, scale)) << K;
            EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << K << ", vectors";
        }
    });
}

TYPED_TEST(CppWalshHadamard, GivesTheSameBitsForLengthsAtRunTime) {
    for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
        const auto x = random_signal<TypeParam>(std::size_t{1} << order, 2);
        for (const qsvgen::Scale scale : kScales) {
            const auto expected = this->expected(x, order, scale);
            Signal<TypeParam> y(x.size());
            EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(x, y, scale)) << order;
            EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << order;
            y.assign(x.size(), 0);
            EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(x, y, *this->work_, scale)) << order;
            EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << order << ", work buffer";
        }
    }
}

TYPED_TEST(CppWalshHadamard, RefusesSizesThatAreNoneOrDoNotFit) {
    using Real = typename TypeParam::Real;
    GuardedPage page;
    page.allow(Access::None);
    auto* const forbidden = reinterpret_cast<Real*>(page.begin());
    const auto refused = [&](std::size_t in, std::size_t out) {
        const std::span<const Real> x(forbidden, in);
        const std::span<Real> y(forbidden, out);
        EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(x, y)) << in << " to " << out;
        EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(x, y, *this->work_))
            << in << " to " << out;
    };
    for (const std::size_t size : {0, 1, 3, 6, 100, 8191, 8193, 16384}) refused(size, size);
    refused(8, 4);
    refused(4, 8);
    refused(256, 0);
    constexpr auto kHighest = std::numeric_limits<std::size_t>::max() / 2 + 1;  // a power of two
    refused(kHighest, kHighest);
}

TYPED_TEST(CppWalshHadamard, RefusesAWorkBufferOfALowerOrder) {
    using Real = typename TypeParam::Real;
    qsvgen::WalshHadamardWork<Real, 8> work;
    Signal<TypeParam> x(256, 1);
    Signal<TypeParam> longer(512, 1);
    EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(x, x, work));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(longer, longer, work));
    EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(qsvgen::rows(longer, 1, 512),
                                                         qsvgen::rows(longer, 1, 512), work));
    EXPECT_EQ(Signal<TypeParam>(512, 1), longer);
}

TYPED_TEST(CppWalshHadamard, HasWorkBuffersOfTheSizeThatTheLibraryTellsOnItsBoundary) {
    using Real = typename TypeParam::Real;
    this->for_each_order([&]<int K>() {
        std::int32_t size = -1;
        ASSERT_EQ(qsvStatusOk, wht_buffer_size<TypeParam>(K, &size));
        using Work = qsvgen::WalshHadamardWork<Real, K>;
        EXPECT_EQ(static_cast<std::size_t>(size), Work::size()) << "order " << K;
        EXPECT_EQ(std::size_t{16}, alignof(Work)) << "order " << K;
        const auto work = std::make_unique<Work>();
        EXPECT_EQ(size == 0, work->data() == nullptr) << "order " << K;
    });
}

}  // namespace
}  // namespace qsvgen_test
