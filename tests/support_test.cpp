/** @file @brief The yardsticks of the other tests, checked against something independent. */

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

#include "support/reference_dft.hpp"
#include "support/scale.hpp"

namespace qsvgen_test {
namespace {

TEST(RootOfUnity, LiesOnTheCircleAndItsPowersCloseIt) {
    for (int length = 1; length <= 2 * kLongestLength; ++length) {
        const Wide step = root_of_unity(1, length);
        Wide power = {1, 0};
        for (int j = 0; j <= length; ++j) {
            const Wide root = root_of_unity(j, length);
            EXPECT_LE(std::abs(norm(root) - 1), 1e-18L) << j << "/" << length;
            EXPECT_LE(static_cast<double>(norm(root - power)), 1e-34) << j << "/" << length;
            power = power * step;
        }
    }
}

TEST(RootOfUnity, IsExactOnTheAxesAndSymmetricAroundThem) {
    EXPECT_EQ(1, root_of_unity(0, 12).re);
    EXPECT_EQ(0, root_of_unity(0, 12).im);
    EXPECT_EQ(0, root_of_unity(3, 12).re);
    EXPECT_EQ(1, root_of_unity(3, 12).im);
    EXPECT_EQ(-1, root_of_unity(6, 12).re);
    EXPECT_EQ(0, root_of_unity(-6, 12).im);
    EXPECT_EQ(-1, root_of_unity(9, 12).im);
    for (int j = 0; j < 59; ++j) {
        EXPECT_EQ(root_of_unity(j, 59).re, root_of_unity(-j, 59).re);
        EXPECT_EQ(root_of_unity(j, 59).im, -root_of_unity(-j, 59).im);
    }
}

// EXPECT_NEAR compares in double, which is too coarse here.
TEST(RootOfUnity, AgreesWithKnownValues) {
    const auto off = [](long double value, long double known) { return std::abs(value - known); };
    EXPECT_LE(off(root_of_unity(1, 6).im, 0.866025403784438646763723170753L), 1e-19L);
    EXPECT_LE(off(root_of_unity(1, 5).re, 0.309016994374947424102293417183L), 1e-19L);
    EXPECT_LE(off(root_of_unity(2, 5).re, -0.809016994374947424102293417183L), 1e-19L);
    EXPECT_LE(off(root_of_unity(3, 8).im, 0.707106781186547524400844362105L), 1e-19L);
}

TEST(ReferenceDft, TurnsRightForTheForwardTransformAndLeftForTheInverse) {
    const std::vector<Wide> impulse_at_one = {{0, 0}, {1, 0}, {0, 0}, {0, 0}};
    const auto forward = reference_dft(impulse_at_one, Direction::Forward);
    const auto inverse = reference_dft(impulse_at_one, Direction::Inverse);
    EXPECT_EQ(1, forward[0].re);
    EXPECT_EQ(-1, forward[1].im);
    EXPECT_EQ(-1, forward[2].re);
    EXPECT_EQ(1, forward[3].im);
    EXPECT_EQ(1, inverse[1].im);
    EXPECT_EQ(-1, inverse[3].im);
}

// s is nearest to 1/sqrt(N) when s - h < 1/sqrt(N) < s + h for half a unit h in the last place:
// with all three times 2^e whole numbers, both comparisons can be made in exact integers.
TEST(ScaleFactor, IsTheNearestSingleToTheInverseRoot) {
    for (int length = kShortestLength; length <= kLongestLength; ++length) {
        const float s = scale_factor<Single>(length, Direction::Forward, qsvScaleBySqrtN);
        const auto bits = std::bit_cast<std::uint32_t>(s);
        const int exponent = static_cast<int>(bits >> 23) - 127;
        const std::uint64_t twice = 2 * std::uint64_t{(bits & 0x7FFFFF) | 0x800000};
        // s = twice * 2^(exponent - 24), so N * s^2 = 1 means N * twice^2 = 2^(48 - 2 * exponent).
        const auto n = static_cast<std::uint64_t>(length);
        const std::uint64_t one = std::uint64_t{1} << (48 - 2 * exponent);
        EXPECT_LT(n * (twice - 1) * (twice - 1), one) << "length " << length;
        EXPECT_GT(n * (twice + 1) * (twice + 1), one) << "length " << length;
    }
}

TEST(ScaleFactor, FollowsTheFlagAndTheDirection) {
    const auto s = [](Direction direction, std::int32_t flag) {
        return scale_factor<Single>(8, direction, flag);
    };
    EXPECT_EQ(0.125f, s(Direction::Forward, 1));
    EXPECT_EQ(1.0f, s(Direction::Forward, 2));
    EXPECT_EQ(1.0f, s(Direction::Forward, 8));
    EXPECT_EQ(1.0f, s(Direction::Inverse, 1));
    EXPECT_EQ(0.125f, s(Direction::Inverse, 2));
    EXPECT_EQ(1.0f, s(Direction::Inverse, 8));
    EXPECT_EQ(s(Direction::Forward, 4), s(Direction::Inverse, 4));
}

}  // namespace
}  // namespace qsvgen_test
