/** @file @brief Sines and cosines of multiples of pi. */

#include "plan/sine_cosine.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace {

const double kPi = std::bit_cast<double>(std::uint64_t{0x400921FB54442D18});

std::uint32_t bits(float x) {
    return std::bit_cast<std::uint32_t>(x);
}
std::uint64_t bits(double x) {
    return std::bit_cast<std::uint64_t>(x);
}

TEST(SineAndCosine, AreExactAtZero) {
    EXPECT_EQ(1.0f, qsvgCosPi_32f(0.0f));
    EXPECT_EQ(0.0f, qsvgSinPi_32f(0.0f));
    EXPECT_EQ(1.0, qsvgCosPi_64f(0.0));
    EXPECT_EQ(0.0, qsvgSinPi_64f(0.0));
}

TEST(SineAndCosine, KnowNoExactCaseButZero) {
    EXPECT_NEAR(1.2246467991473532e-16, qsvgSinPi_64f(1.0), 1e-31);
    EXPECT_NEAR(6.123233995736766e-17, qsvgCosPi_64f(0.5), 1e-31);
    EXPECT_NEAR(-8.742278e-8, qsvgSinPi_32f(1.0f), 1e-14);
    EXPECT_NEAR(-4.371139e-8, qsvgCosPi_32f(0.5f), 1e-14);
}

TEST(SineAndCosine, OfDoublesAreThoseOfTheRoundedProduct) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> values(-4, 4);
    for (int i = 0; i < 20000; ++i) {
        const volatile double x = values(random);
        const volatile double angle = kPi * x;
        ASSERT_EQ(bits(::cos(angle)), bits(qsvgCosPi_64f(x))) << x;
        ASSERT_EQ(bits(::sin(angle)), bits(qsvgSinPi_64f(x))) << x;
    }
}

// The product is formed wide and the function evaluated narrow.
TEST(SineAndCosine, OfFloatsAreThoseOfTheProductRoundedOnce) {
    std::mt19937 random(4);
    std::uniform_real_distribution<float> values(-4, 4);
    int narrow_product = 0;
    int wide_function = 0;
    for (int i = 0; i < 20000; ++i) {
        const volatile float x = values(random);
        const volatile double wide = kPi * static_cast<double>(x);
        const volatile float angle = static_cast<float>(wide);
        ASSERT_EQ(bits(::cosf(angle)), bits(qsvgCosPi_32f(x))) << x;
        ASSERT_EQ(bits(::sinf(angle)), bits(qsvgSinPi_32f(x))) << x;
        const volatile float narrow = static_cast<float>(kPi) * x;
        narrow_product += bits(::cosf(narrow)) != bits(qsvgCosPi_32f(x)) ? 1 : 0;
        wide_function += bits(static_cast<float>(::cos(wide))) != bits(qsvgCosPi_32f(x)) ? 1 : 0;
    }
    // Else the values could not tell either from what they must not be.
    EXPECT_GT(narrow_product, 1000);
    EXPECT_GT(wide_function, 1000);
}

TEST(SineAndCosine, DoNotReduceTheirArgument) {
    for (const float x : {2.0f, 100.5f, 12345.25f})
        EXPECT_EQ(bits(::cosf(static_cast<float>(kPi * static_cast<double>(x)))),
                  bits(qsvgCosPi_32f(x)))
            << x;
    EXPECT_EQ(bits(::sin(kPi * 1e6)), bits(qsvgSinPi_64f(1e6)));
}

TEST(SineAndCosine, OfWhatIsNoNumberAreNone) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float x : {kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(qsvgCosPi_32f(x))) << x;
        EXPECT_TRUE(std::isnan(qsvgSinPi_32f(x))) << x;
        EXPECT_TRUE(std::isnan(qsvgCosPi_64f(static_cast<double>(x)))) << x;
        EXPECT_TRUE(std::isnan(qsvgSinPi_64f(static_cast<double>(x)))) << x;
    }
}

}  // namespace
