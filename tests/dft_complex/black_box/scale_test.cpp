/** @file @brief By what each flag multiplies, and that it multiplies each output once. */

#include <gtest/gtest.h>

#include <bit>

#include "support/bits.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kSignals = 20;

template <class E>
class Scale : public testing::Test {};
TYPED_TEST_SUITE(Scale, ComplexTypes, ElementNames);

// Expects the bits of both flags to be the same for every kernel of one direction.
template <class E>
void expect_flags_alike(Direction direction, std::int32_t flag, std::int32_t other) {
    for (const auto& kernel : kernels<E>()) {
        if (kernel.direction != direction) continue;
        for (const auto& placement : kPlacements) {
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_signal<E>(kernel.length, seed);
                EXPECT_TRUE(same_bits<E>(transform(kernel, x, other, placement),
                                         transform(kernel, x, flag, placement)))
                    << describe(kernel, flag) << " against flag " << other << ", signal " << seed;
            }
        }
    }
}

TYPED_TEST(Scale, ForwardIsUnscaledWithTheFlagThatScalesTheInverse) {
    expect_flags_alike<TypeParam>(Direction::Forward, qsvScaleInvByN, qsvScaleNone);
}

TYPED_TEST(Scale, InverseIsUnscaledWithTheFlagThatScalesTheForward) {
    expect_flags_alike<TypeParam>(Direction::Inverse, qsvScaleFwdByN, qsvScaleNone);
}

TYPED_TEST(Scale, EveryOutputIsTheUnscaledOneMultipliedOnce) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_signal<TypeParam>(kernel.length, seed);
                const auto unscaled = transform(kernel, x, qsvScaleNone, placement);
                for (const auto flag : kFlags) {
                    const auto s = scale_factor<TypeParam>(kernel.length, kernel.direction, flag);
                    auto expected = unscaled;
                    for (auto& y : expected) y = {y.re * s, y.im * s};
                    EXPECT_TRUE(
                        same_bits<TypeParam>(expected, transform(kernel, x, flag, placement)))
                        << describe(kernel, flag) << ", signal " << seed;
                }
            }
        }
    }
}

// An impulse at 0 shows the factor itself. The chirp lengths pass it through a longer
// transform, which is what the tolerance is for.
TYPED_TEST(Scale, AnImpulseAtZeroComesOutAsTheFactorEverywhere) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const double tolerance =
            TypeParam::is_chirp_length(kernel.length) ? 4 * TypeParam::kEpsilon : 0;
        const auto x = impulse<TypeParam>(kernel.length, 0, {1, 0});
        for (const auto flag : kFlags) {
            const auto s = scale_factor<TypeParam>(kernel.length, kernel.direction, flag);
            for (const auto& placement : kPlacements) {
                const auto y = transform(kernel, x, flag, placement);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    EXPECT_NEAR(s, y[k].re, tolerance * s)
                        << describe(kernel, flag) << ", output " << k << ": "
                        << show<TypeParam>(y[k].re) << " instead of " << show<TypeParam>(s);
                    EXPECT_NEAR(0, y[k].im, tolerance * s)
                        << describe(kernel, flag) << ", output " << k << ": "
                        << show<TypeParam>(y[k].im) << " instead of 0";
                }
            }
        }
    }
}

// The known bits of the factors 1/6, 1/sqrt(6) and 1.
template <class E>
void expect_factors_of_length_six(typename E::Bits by_length, typename E::Bits by_root,
                                  typename E::Bits one) {
    const auto x = impulse<E>(6, 0, {1, 0});
    const auto bits = [&x](Direction direction, std::int32_t flag) {
        return std::bit_cast<typename E::Bits>(
            transform(kernel_of<E>(6, direction), x, flag)[1].re);
    };
    EXPECT_EQ(by_length, bits(Direction::Forward, qsvScaleFwdByN));
    EXPECT_EQ(one, bits(Direction::Forward, qsvScaleInvByN));
    EXPECT_EQ(by_root, bits(Direction::Forward, qsvScaleBySqrtN));
    EXPECT_EQ(one, bits(Direction::Forward, qsvScaleNone));
    EXPECT_EQ(one, bits(Direction::Inverse, qsvScaleFwdByN));
    EXPECT_EQ(by_length, bits(Direction::Inverse, qsvScaleInvByN));
    EXPECT_EQ(by_root, bits(Direction::Inverse, qsvScaleBySqrtN));
    EXPECT_EQ(one, bits(Direction::Inverse, qsvScaleNone));
}

TEST(ScaleOfLengthSix, IsRoundedToTheNearestSingle) {
    expect_factors_of_length_six<Single>(0x3E2AAAABu, 0x3ED105ECu, 0x3F800000u);
}
TEST(ScaleOfLengthSix, IsRoundedToTheNearestDouble) {
    expect_factors_of_length_six<Double>(0x3FC5555555555555u, 0x3FDA20BD700C2C3Eu,
                                         0x3FF0000000000000u);
}

}  // namespace
}  // namespace qsvgen_test
