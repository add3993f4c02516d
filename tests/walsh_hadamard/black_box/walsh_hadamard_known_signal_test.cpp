/** @file @brief Walsh-Hadamard transforms of signals whose transform is known, and the scales. */

#include <gtest/gtest.h>

#include <cmath>

#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class WalshHadamardOfKnownSignals : public testing::Test {};
TYPED_TEST_SUITE(WalshHadamardOfKnownSignals, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardOfKnownSignals, AnImpulseAtZeroGivesTheScaleEverywhere) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            const auto x = impulse<TypeParam>(kernel.size(), 0, 1);
            const auto expected = constant_signal<TypeParam>(
                kernel.size(), order_scale<TypeParam>(kernel.order, flag));
            EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, x, flag)))
                << describe(kernel, flag);
        }
    }
}

TYPED_TEST(WalshHadamardOfKnownSignals, OnesGiveNTimesTheScaleAtZeroAndZerosElsewhere) {
    using Real = typename TypeParam::Real;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            const auto x = constant_signal<TypeParam>(kernel.size(), 1);
            const Real peak =
                static_cast<Real>(kernel.size()) * order_scale<TypeParam>(kernel.order, flag);
            const auto expected = impulse<TypeParam>(kernel.size(), 0, peak);
            EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, x, flag)))
                << describe(kernel, flag);
        }
    }
}

TYPED_TEST(WalshHadamardOfKnownSignals, TheTwoFlagsThatDivideByNGiveTheSameBits) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        const auto x = random_signal<TypeParam>(kernel.size(), 43);
        for (const auto& placement : kPlacements) {
            EXPECT_TRUE(same_bits<TypeParam>(transform(kernel, x, qsvScaleFwdByN, placement),
                                             transform(kernel, x, qsvScaleInvByN, placement)))
                << kernel.name;
        }
    }
}

TYPED_TEST(WalshHadamardOfKnownSignals, TwiceIsTheIdentityTimesN) {
    using Real = typename TypeParam::Real;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        std::vector<Real> x(kernel.size());
        for (std::size_t n = 0; n < x.size(); ++n) x[n] = static_cast<Real>(n * 7 % 23) - 11;
        const auto back = transform(kernel, transform(kernel, x, qsvScaleNone), qsvScaleFwdByN);
        EXPECT_TRUE(same_bits<TypeParam>(x, back)) << kernel.name;
    }
}

// The scales of the tests above come from the same list of bits; here they meet the root itself.
TEST(WalshHadamardScales, RootsOfOddOrdersAreTheNearestInBinary32) {
    for (int order = 1; order <= kHighestOrder; ++order) {
        const auto nearest = static_cast<float>(std::pow(2.0L, -order / 2.0L));
        EXPECT_EQ(show<RealSingle>(nearest), show<RealSingle>(root_scale<RealSingle>(order)))
            << "order " << order;
    }
}

TEST(WalshHadamardScales, RootsOfOddOrdersAreOneUnitBelowTheNearestInBinary64) {
    for (int order = 1; order <= kHighestOrder; ++order) {
        const auto nearest = static_cast<double>(std::pow(2.0L, -order / 2.0L));
        const double expected = order % 2 == 0 ? nearest : std::nextafter(nearest, 0.0);
        EXPECT_EQ(show<RealDouble>(expected), show<RealDouble>(root_scale<RealDouble>(order)))
            << "order " << order;
    }
    EXPECT_EQ(0.7071067811865475, root_scale<RealDouble>(1));
    EXPECT_EQ(0.011048543456039804, root_scale<RealDouble>(13));
}

}  // namespace
}  // namespace qsvgen_test
