/** @file @brief By which factor lengths are split. */

#include "plan/factor_choice.hpp"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr std::int32_t kUntouched = -77;

/** The factor, or kUntouched where the choice fails and leaves its result as it was. */
std::int32_t factor_of(std::int32_t value) {
    std::int32_t out = kUntouched;
    const QsvStatus status = divisorsIntNonTriv(&out, value);
    EXPECT_EQ(out == kUntouched ? -6 : 0, status) << value;
    return out;
}

TEST(FactorChoice, TakesTheFirstOfItsLadderThatDivides) {
    const std::array<std::array<std::int32_t, 2>, 20> cases = {
        {{4, 2},   {8, 2},    {14, 2},   {16, 4},    {18, 2},       {32, 8},      {36, 4},
         {64, 8},  {120, 8},  {126, 2},  {128, 16},  {136, 8},      {256, 16},    {496, 16},
         {504, 8}, {512, 32}, {528, 16}, {1024, 32}, {1 << 29, 32}, {1 << 30, 32}}};
    for (const auto& [value, factor] : cases) EXPECT_EQ(factor, factor_of(value)) << value;
}

TEST(FactorChoice, FailsWhereNothingDividesAndBelowFour) {
    for (const std::int32_t value :
         {3, 15, 31, 127, 511, 513, 2, 1, 0, -1, -4, -512, 5, INT32_MAX, INT32_MIN, -1024})
        EXPECT_EQ(kUntouched, factor_of(value)) << value;
}

// Bounds of the ladder from the value, divisors from the number of its trailing zeros.
TEST(FactorChoice, IsTheSmallerOfTheCeilingAndTheEvenPart) {
    for (std::int32_t value = -100; value < 20000; ++value) {
        std::int32_t expected = kUntouched;
        if (value >= 4 && value % 2 == 0) {
            const std::int32_t even_part = value & -value;
            const std::int32_t ceiling = value < 16    ? 2
                                         : value < 32  ? 4
                                         : value < 128 ? 8
                                         : value < 512 ? 16
                                                       : 32;
            expected = even_part < ceiling ? even_part : ceiling;
        }
        EXPECT_EQ(expected, factor_of(value)) << value;
    }
}

}  // namespace
