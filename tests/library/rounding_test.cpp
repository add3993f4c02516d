/**
 * @file
 * @brief Rounding to single precision by the whole register is the language's own, to the bit.
 */

#include "core/rounding.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace {

void expect_like_a_conversion(double value) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(static_cast<float>(value)),
              std::bit_cast<std::uint32_t>(core::rounded(value)))
        << std::hexfloat << value;
}

TEST(Rounding, OfRandomBitsIsThatOfAConversion) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 100000; ++i) expect_like_a_conversion(std::bit_cast<double>(random()));
}

TEST(Rounding, OfValuesInTheRangeOfBinary32IsThatOfAConversion) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> significand(-2, 2);
    for (int exponent = -152; exponent <= 129; ++exponent) {
        for (int i = 0; i < 100; ++i)
            expect_like_a_conversion(std::ldexp(significand(random), exponent));
    }
}

TEST(Rounding, OfTiesIsToTheEvenNeighbour) {
    EXPECT_EQ(1.0f, core::rounded(1 + 0x1p-24));
    EXPECT_EQ(1 + 0x1p-22f, core::rounded(1 + 0x1.8p-23));
    EXPECT_EQ(-1.0f, core::rounded(-1 - 0x1p-24));
}

TEST(Rounding, KeepsZerosInfinitiesAndNaN) {
    for (double value :
         {0.0, -0.0, HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN(), DBL_MAX,
          -DBL_MAX, DBL_MIN, DBL_TRUE_MIN, -DBL_TRUE_MIN, 0x1p-149, 0x1p-150})
        expect_like_a_conversion(value);
}

// The other half of the register holds zero, so it raises nothing of its own.
TEST(Rounding, OfAnExactValueRaisesNoException) {
    const volatile double exact = 0.75;
    std::feclearexcept(FE_ALL_EXCEPT);
    const volatile float rounded = core::rounded(exact);
    EXPECT_EQ(0, std::fetestexcept(FE_ALL_EXCEPT));
    EXPECT_EQ(0.75f, rounded);
}

}  // namespace
