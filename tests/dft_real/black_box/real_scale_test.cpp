/** @file @brief By what each flag multiplies a real transform, once, and in which precision. */

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>

#include "support/bits.hpp"
#include "support/real_counts.hpp"
#include "support/real_layout.hpp"
#include "support/scale.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSignals = 20;

template <class E>
class RealScale : public testing::Test {
  protected:
    using Real = typename E::Real;

    static void expect_flags_alike(Direction direction, std::int32_t flag, std::int32_t other) {
        for (const auto& kernel : kernels<E>()) {
            if (kernel.direction != direction) continue;
            for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
                const auto x = random_source(kernel, seed);
                EXPECT_TRUE(same_bits<E>(transform(kernel, x, other), transform(kernel, x, flag)))
                    << describe(kernel, flag) << " against flag " << other << ", signal " << seed;
            }
        }
    }

    /** Outputs that some flag does not make of the unscaled ones by one multiplication. */
    static std::vector<bool> outputs_rounded_once_with_the_factor(const Kernel<E>& kernel) {
        std::vector<bool> found(kernel.destination_size());
        for (std::uint32_t seed = 0; seed < kSignals; ++seed) {
            const auto x = random_source(kernel, seed);
            const auto unscaled = transform(kernel, x, qsvScaleNone);
            for (const auto flag : kFlags) {
                const Real s = scale_factor(kernel, flag);
                const auto y = transform(kernel, x, flag);
                for (std::size_t k = 0; k < y.size(); ++k) {
                    if (y[k] != unscaled[k] * s) found[k] = true;
                }
            }
        }
        return found;
    }
};
TYPED_TEST_SUITE(RealScale, RealTypes, ElementNames);

TYPED_TEST(RealScale, ForwardIsUnscaledWithTheFlagThatScalesTheInverse) {
    this->expect_flags_alike(Direction::Forward, qsvScaleInvByN, qsvScaleNone);
}

TYPED_TEST(RealScale, InverseIsUnscaledWithTheFlagThatScalesTheForward) {
    this->expect_flags_alike(Direction::Inverse, qsvScaleFwdByN, qsvScaleNone);
}

TYPED_TEST(RealScale, HartleyIsScaledAlikeByTheFlagsOfBothDirections) {
    this->expect_flags_alike(Direction::Both, qsvScaleFwdByN, qsvScaleInvByN);
}

// Where an output ends in a row of products of a binary32 kernel, the factor stands in the row and
// is rounded with it. Everywhere else it meets the finished output.
TYPED_TEST(RealScale, EveryOutputIsTheUnscaledOneMultipliedOnce) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const bool has_rows_with_factor = std::is_same_v<TypeParam, RealSingle> &&
                                          kernel.direction == Direction::Forward &&
                                          real_counts(kernel.length).scaled_in_rows > 0;
        if (has_rows_with_factor) continue;
        const auto found = this->outputs_rounded_once_with_the_factor(kernel);
        for (std::size_t k = 0; k < found.size(); ++k) {
            EXPECT_FALSE(found[k]) << kernel.name << ", output " << name_output(kernel, k)
                                   << " is not the unscaled one times the factor";
        }
    }
}

using RealScaleOf32f = RealScale<RealSingle>;

// The factor of these lengths is no power of two, so that two roundings show among the signals.
TEST_F(RealScaleOf32f, AsManyForwardOutputsAreScaledInTheirRowsAsTheLengthHas) {
    for (const auto& kernel : kernels<RealSingle>()) {
        if (kernel.direction != Direction::Forward) continue;
        const auto found = outputs_rounded_once_with_the_factor(kernel);
        const auto count = static_cast<int>(std::count(found.begin(), found.end(), true));
        const int expected = real_counts(kernel.length).scaled_in_rows;
        if (is_open_by_half(kernel.length)) {
            EXPECT_LE(count, expected) << kernel.name;
        } else {
            EXPECT_EQ(expected, count) << kernel.name;
        }
        EXPECT_FALSE(found[0]) << kernel.name << ", the sum of all is no row";
    }
}

// Twice the factor, or none at all, is further off than the roundings.
TYPED_TEST(RealScale, EveryOutputIsNearTheUnscaledOneTimesTheFactor) {
    for (const auto& kernel : kernels<TypeParam>()) {
        for (const auto flag : kFlags) {
            const auto s = scale_factor(kernel, flag);
            const auto x = random_source(kernel, 79);
            const auto unscaled = transform(kernel, x, qsvScaleNone);
            const auto y = transform(kernel, x, flag);
            for (std::size_t k = 0; k < y.size(); ++k) {
                const auto expected = unscaled[k] * s;
                EXPECT_LE(std::abs(y[k] - expected), 2 * TypeParam::kEpsilon * std::abs(expected))
                    << describe(kernel, flag) << ", output " << name_output(kernel, k) << ": "
                    << show<TypeParam>(y[k]) << " instead of " << show<TypeParam>(expected);
            }
        }
    }
}

// The known bits of the factors 1/7, 1/sqrt(7) and 1.
template <class E>
void expect_factors_of_length_seven(typename E::Bits by_length, typename E::Bits by_root,
                                    typename E::Bits one) {
    using Bits = typename E::Bits;
    const std::map<std::pair<Direction, std::int32_t>, Bits> expected = {
        {{Direction::Forward, qsvScaleFwdByN}, by_length},
        {{Direction::Forward, qsvScaleInvByN}, one},
        {{Direction::Forward, qsvScaleBySqrtN}, by_root},
        {{Direction::Forward, qsvScaleNone}, one},
        {{Direction::Inverse, qsvScaleFwdByN}, one},
        {{Direction::Inverse, qsvScaleInvByN}, by_length},
        {{Direction::Inverse, qsvScaleBySqrtN}, by_root},
        {{Direction::Inverse, qsvScaleNone}, one},
        {{Direction::Both, qsvScaleFwdByN}, by_length},
        {{Direction::Both, qsvScaleInvByN}, by_length},
        {{Direction::Both, qsvScaleBySqrtN}, by_root},
        {{Direction::Both, qsvScaleNone}, one}};
    for (const auto& kernel : kernels<E>()) {
        if (kernel.length != 7) continue;
        const auto x = impulse<E>(kernel.source_size(), 0, 1);
        for (const auto flag : kFlags) {
            const auto y = transform(kernel, x, flag);
            for (std::size_t k = 0; k < y.size(); ++k) {
                if (kernel.direction == Direction::Forward &&
                    slots_of(kernel.layout, 7)[k].part != Part::Real) {
                    continue;
                }
                EXPECT_EQ(expected.at({kernel.direction, flag}), std::bit_cast<Bits>(y[k]))
                    << describe(kernel, flag) << ", output " << name_output(kernel, k) << ": "
                    << show<E>(y[k]);
            }
        }
    }
}

TEST(RealScaleOfLengthSeven, IsRoundedToTheNearestSingle) {
    expect_factors_of_length_seven<RealSingle>(0x3E124925u, 0x3EC1848Fu, 0x3F800000u);
}
TEST(RealScaleOfLengthSeven, IsRoundedToTheNearestDouble) {
    expect_factors_of_length_seven<RealDouble>(0x3FC2492492492492u, 0x3FD83091E6A7F7E7u,
                                               0x3FF0000000000000u);
}

}  // namespace
}  // namespace qsvgen_test
