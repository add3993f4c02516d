/**
 * @file
 * @brief Sines and cosines of multiples of pi are the correctly rounded ones of the rounded
 * product. What is named thorough takes minutes: scripts/test --thorough sines.
 */

#include "plan/sine_cosine.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "support/bits.hpp"
#include "support/correct_rounding.hpp"

namespace qsvgen_test {
namespace {

const double kPi = std::bit_cast<double>(std::uint64_t{0x400921FB54442D18});

/** The multiple of pi that the functions are evaluated at; volatile, so that each step rounds. */
Real64 angle_of(Real64 x) {
    const volatile Real64 angle = kPi * x;
    return angle;
}
Real32 angle_of(Real32 x) {
    const volatile Real32 angle = static_cast<Real32>(angle_of(static_cast<Real64>(x)));
    return angle;
}

Real32 sine_of(Real32 x) {
    return qsvgSinPi_32f(x);
}
Real64 sine_of(Real64 x) {
    return qsvgSinPi_64f(x);
}
Real32 cosine_of(Real32 x) {
    return qsvgCosPi_32f(x);
}
Real64 cosine_of(Real64 x) {
    return qsvgCosPi_64f(x);
}

template <class Real>
void expect_correctly_rounded(Real x) {
    const Real angle = angle_of(x);
    EXPECT_TRUE(same_number_bits(correctly_rounded_sine(angle), sine_of(x)))
        << "sine of pi times " << std::hexfloat << x;
    EXPECT_TRUE(same_number_bits(correctly_rounded_cosine(angle), cosine_of(x)))
        << "cosine of pi times " << std::hexfloat << x;
}

template <class Real>
void expect_random_arguments_correctly_rounded(int count) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<Real> values(-4, 4);
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i)
        expect_correctly_rounded(values(random));
}

template <class Real>
class SineAndCosine : public testing::Test {};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(SineAndCosine, Reals);

TYPED_TEST(SineAndCosine, AreExactAtZeroWithItsSign) {
    EXPECT_TRUE(same_number_bits(TypeParam(1), cosine_of(TypeParam(0))));
    EXPECT_TRUE(same_number_bits(TypeParam(0), sine_of(TypeParam(0))));
    EXPECT_TRUE(same_number_bits(TypeParam(1), cosine_of(-TypeParam(0))));
    EXPECT_TRUE(same_number_bits(-TypeParam(0), sine_of(-TypeParam(0))));
}

TYPED_TEST(SineAndCosine, OfRandomArgumentsAreCorrectlyRounded) {
    expect_random_arguments_correctly_rounded<TypeParam>(50000);
}

// Where a table's sine stands alone, the reduction cancels, and signs and signs of slopes change.
TYPED_TEST(SineAndCosine, OfStepsAndTheirNeighboursAreCorrectlyRounded) {
    constexpr TypeParam kInfinity = std::numeric_limits<TypeParam>::infinity();
    for (int k = -1024; k <= 1024; ++k) {
        const TypeParam x = static_cast<TypeParam>(k) / 256;
        expect_correctly_rounded(x);
        if (k > -1024) expect_correctly_rounded(std::nextafter(x, -kInfinity));
        if (k < 1024) expect_correctly_rounded(std::nextafter(x, kInfinity));
    }
}

TYPED_TEST(SineAndCosine, OfSmallArgumentsDownToDenormalsAreCorrectlyRounded) {
    const int smallest = std::is_same_v<TypeParam, Real32> ? -149 : -1074;
    for (int exponent = 0; exponent >= smallest; --exponent) {
        for (const TypeParam digits : {TypeParam(1), TypeParam(1.25), TypeParam(-1.7)})
            expect_correctly_rounded(std::ldexp(digits, exponent));
    }
}

TEST(SineAndCosineOfDoubles, KnowNoExactCaseButZero) {
    EXPECT_NEAR(1.2246467991473532e-16, qsvgSinPi_64f(1.0), 1e-31);
    EXPECT_NEAR(6.123233995736766e-17, qsvgCosPi_64f(0.5), 1e-31);
}

// The product is formed wide and the function evaluated narrow.
TEST(SineAndCosineOfFloats, KnowNoExactCaseButZeroAndAreThoseOfTheProductRoundedOnce) {
    EXPECT_NEAR(-8.742278e-8, qsvgSinPi_32f(1.0f), 1e-14);
    EXPECT_NEAR(-4.371139e-8, qsvgCosPi_32f(0.5f), 1e-14);
    std::mt19937 random(4);
    std::uniform_real_distribution<float> values(-4, 4);
    int narrow_product = 0;
    int wide_function = 0;
    for (int i = 0; i < 20000; ++i) {
        const volatile float x = values(random);
        const volatile float narrow = static_cast<float>(kPi) * x;
        const float cosine = qsvgCosPi_32f(x);
        narrow_product += correctly_rounded_cosine(narrow) != cosine ? 1 : 0;
        const double wide = correctly_rounded_cosine(angle_of(static_cast<double>(x)));
        wide_function += static_cast<float>(wide) != cosine ? 1 : 0;
    }
    EXPECT_GT(narrow_product, 1000);
    EXPECT_GT(wide_function, 1000);
}

TYPED_TEST(SineAndCosine, OfWhatIsOutOfRangeAreNoNumbers) {
    using Limits = std::numeric_limits<TypeParam>;
    const TypeParam next = std::nextafter(TypeParam(4), Limits::infinity());
    for (const TypeParam x : {next, TypeParam(100.5), TypeParam(1e30), Limits::max(),
                              Limits::infinity(), Limits::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(cosine_of(x))) << x;
        EXPECT_TRUE(std::isnan(sine_of(x))) << x;
        EXPECT_TRUE(std::isnan(cosine_of(-x))) << -x;
        EXPECT_TRUE(std::isnan(sine_of(-x))) << -x;
    }
}

TEST(ThoroughSineAndCosine, OfAMillionRandomDoublesAreCorrectlyRounded) {
    expect_random_arguments_correctly_rounded<Real64>(1000000);
}

/** Whether `value` is what `wide`, whose error is less than eight of its last places, says; where
 * that is not enough, what MPFR says. */
template <class Function>
bool is_correctly_rounded(float value, double wide, float angle, const Function& correct) {
    const float below = static_cast<float>(wide * (1 - 0x1p-50));
    const float above = static_cast<float>(wide * (1 + 0x1p-50));
    return same_number_bits(value, same_number_bits(below, above) ? below : correct(angle));
}

TEST(ThoroughSineAndCosine, OfEveryFloatAreCorrectlyRounded) {
    const auto last = std::bit_cast<std::uint32_t>(4.0f);
    const auto sine = [](float angle) { return correctly_rounded_sine(angle); };
    const auto cosine = [](float angle) { return correctly_rounded_cosine(angle); };
    int wrong = 0;
    for (std::uint32_t bits = 0; bits <= last; ++bits) {
        const float x = std::bit_cast<float>(bits);
        const float angle = angle_of(x);
        const double wide = static_cast<double>(angle);
        const bool sine_is_right =
            is_correctly_rounded(qsvgSinPi_32f(x), std::sin(wide), angle, sine);
        const bool cosine_is_right =
            is_correctly_rounded(qsvgCosPi_32f(x), std::cos(wide), angle, cosine);
        wrong += (sine_is_right ? 0 : 1) + (cosine_is_right ? 0 : 1);
    }
    EXPECT_EQ(0, wrong) << "sines and cosines of " << last + 1 << " arguments";
}

}  // namespace
}  // namespace qsvgen_test
