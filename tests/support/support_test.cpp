/** @file @brief The yardsticks of the other tests, checked against something independent. */

#include <gtest/gtest.h>

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>
#include <cstdint>
#include <vector>

#include "accuracy_limit.hpp"
#include "control_state.hpp"
#include "reference_dft.hpp"
#include "scale.hpp"
#include "signals.hpp"

namespace qsvgen_test {
namespace {

namespace mp = boost::multiprecision;

/** Long enough for the scale factors' squares to be exact. */
using Long = mp::number<mp::cpp_bin_float<200, mp::digit_base_2>, mp::et_off>;

struct LongComplex {
    Long re;
    Long im;
};

/** The definition with nothing of reference_dft in it but the input. */
std::vector<LongComplex> long_dft(const std::vector<Wide>& x, Direction direction) {
    const int length = static_cast<int>(x.size());
    const Long turn =
        boost::math::constants::two_pi<Long>() * (direction == Direction::Forward ? -1 : 1);
    std::vector<LongComplex> roots;
    for (int j = 0; j < length; ++j) {
        const Long angle = turn * j / length;
        roots.push_back({cos(angle), sin(angle)});
    }
    std::vector<LongComplex> y(x.size());
    for (int k = 0; k < length; ++k) {
        auto& sum = y[static_cast<std::size_t>(k)];
        for (int n = 0; n < length; ++n) {
            const auto& root = roots[static_cast<std::size_t>(n * k % length)];
            const Long re = x[static_cast<std::size_t>(n)].re;
            const Long im = x[static_cast<std::size_t>(n)].im;
            sum.re += re * root.re - im * root.im;
            sum.im += re * root.im + im * root.re;
        }
    }
    return y;
}

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

TEST(ReferenceDft, HasAnErrorFarBelowTheLimitsForDoublePrecision) {
    for (int length : kHeaderLengths) {
        for (const auto direction : {Direction::Forward, Direction::Inverse}) {
            const auto x = widened(random_signal<Double>(length, 1));
            const auto y = reference_dft(x, direction);
            const auto exact = long_dft(x, direction);
            Long error = 0;
            Long size = 0;
            for (std::size_t k = 0; k < y.size(); ++k) {
                const Long re = y[k].re - exact[k].re;
                const Long im = y[k].im - exact[k].im;
                error += re * re + im * im;
                size += exact[k].re * exact[k].re + exact[k].im * exact[k].im;
            }
            EXPECT_LE(static_cast<double>(sqrt(error / size)),
                      accuracy_limit<Double>(length) / 1000)
                << "length " << length;
        }
    }
}

template <class E>
class ScaleFactor : public testing::Test {};
TYPED_TEST_SUITE(ScaleFactor, ElementTypes, ElementNames);

// The bounds are the midpoints between s and its neighbours: what lies between them is nearer to s
// than to any other number. Their squares have few enough bits to be exact.
TYPED_TEST(ScaleFactor, IsTheNearestNumberToTheInverseRootOfEveryLength) {
    using Real = typename TypeParam::Real;
    for (int length : kHeaderLengths) {
        const Real s = scale_factor<TypeParam>(length, Direction::Forward, qsvScaleBySqrtN);
        const Long below = (Long(s) + Long(std::nextafter(s, Real{0}))) / 2;
        const Long above = (Long(s) + Long(std::nextafter(s, Real{1}))) / 2;
        EXPECT_LT(length * below * below, 1) << "length " << length;
        EXPECT_GT(length * above * above, 1) << "length " << length;
    }
}

TYPED_TEST(ScaleFactor, IsTheNearestNumberToTheInverseOfEveryLength) {
    using Real = typename TypeParam::Real;
    for (int length : kHeaderLengths) {
        const Real s = scale_factor<TypeParam>(length, Direction::Inverse, qsvScaleInvByN);
        const Long below = (Long(s) + Long(std::nextafter(s, Real{0}))) / 2;
        const Long above = (Long(s) + Long(std::nextafter(s, Real{1}))) / 2;
        EXPECT_LT(length * below, 1) << "length " << length;
        EXPECT_GT(length * above, 1) << "length " << length;
    }
}

TYPED_TEST(ScaleFactor, FollowsTheFlagAndTheDirection) {
    const auto s = [](Direction direction, std::int32_t flag) {
        return scale_factor<TypeParam>(8, direction, flag);
    };
    EXPECT_EQ(0.125, s(Direction::Forward, 1));
    EXPECT_EQ(1, s(Direction::Forward, 2));
    EXPECT_EQ(1, s(Direction::Forward, 8));
    EXPECT_EQ(1, s(Direction::Inverse, 1));
    EXPECT_EQ(0.125, s(Direction::Inverse, 2));
    EXPECT_EQ(1, s(Direction::Inverse, 8));
    EXPECT_EQ(0.125, s(Direction::Both, 1));
    EXPECT_EQ(0.125, s(Direction::Both, 2));
    EXPECT_EQ(1, s(Direction::Both, 8));
    EXPECT_EQ(s(Direction::Forward, 4), s(Direction::Inverse, 4));
    EXPECT_EQ(s(Direction::Forward, 4), s(Direction::Both, 4));
}

#ifndef __aarch64__
TEST(X87RegistersInUse, AreTheSameUnlessOneIsUsedPoppedOrChanged) {
    const auto are_kept = [](const auto& call) {
        X87Registers before;
        X87Registers after;
        with_all_x87_registers_in_use(call, before, after);
        return before == after;
    };
    EXPECT_TRUE(are_kept([] {}));
    EXPECT_FALSE(are_kept([] { asm volatile("fld1" : : : "memory"); }));
    EXPECT_FALSE(are_kept([] { asm volatile("fstp %%st(0)" : : : "memory"); }));
    EXPECT_FALSE(are_kept([] { asm volatile("fadd %%st(0), %%st(3)" : : : "memory"); }));
    EXPECT_FALSE(are_kept([] { asm volatile("pxor %%mm5, %%mm5" : : : "memory"); }));
    EXPECT_FALSE(are_kept([] { asm volatile("emms" : : : "memory"); }));
}
#endif

}  // namespace
}  // namespace qsvgen_test
