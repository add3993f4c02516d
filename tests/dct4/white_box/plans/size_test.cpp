/** @file @brief Sizes of plans, and the lengths that have one. */

#include <gtest/gtest.h>

#include <array>

#include "support/expected_plan.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kUntouched = -77;

/** The size, or kUntouched where the query refuses and leaves its result as it was. */
std::int32_t size_or_refusal(std::int32_t length) {
    std::int32_t size = kUntouched;
    const QsvStatus status = EXPORTED(DCT4GetSize)(length, &size);
    EXPECT_EQ(size == kUntouched ? -6 : 0, status) << length;
    return size;
}

bool accepted(std::int32_t length) {
    constexpr std::int32_t kSmallestTree = kSingle ? 32 : 8;
    constexpr std::int32_t kLargest = kSingle ? 1 << 26 : 1 << 25;
    if (length == 2 || length == 4 || length == 8 || length == 16 || length == 32) return true;
    if (kOnlyPowersOfTwo) return length >= 64 && length <= kLargest && (length & (length - 1)) == 0;
    const std::int32_t power = length & ~1;
    if (power < kSmallestTree || (power & (power - 1)) != 0) return false;
    return power <= kLargest || power == 1 << 30 || (!kSingle && power == 1 << 29);
}

TEST(PlanSize, IsTheKnownOne) {
    using Case = std::array<std::int32_t, 3>;
    const std::vector<Case> of_32_bits = {{2, 224, 224},
                                          {4, 224, 224},
                                          {8, 224, 224},
                                          {16, 224, 224},
                                          {32, 224, 224},
                                          {33, 1408, 1664},
                                          {64, 1632, 2144},
                                          {65, 1664, 2176},
                                          {128, 2144, 3168},
                                          {256, 3168, 5216},
                                          {512, 5216, 9312},
                                          {1024, 9312, 17504},
                                          {2048, 17504, 33888},
                                          {4096, 52768, 101920},
                                          {4097, 52832, 101984},
                                          {8192, 103968, 202272},
                                          {65536, 820000, 1606432},
                                          {131072, 2164960, 4262112},
                                          {1073741824, 536874336, 536874336}};
    // A leaf takes 32 bytes more, a tree 192 and 96 for each of its splits.
    const std::vector<Case> of_64_bits = {{2, 256, 256},
                                          {4, 256, 256},
                                          {32, 256, 256},
                                          {64, 1824, 2336},
                                          {128, 2336, 3360},
                                          {256, 3360, 5408},
                                          {2048, 17696, 34080},
                                          {4096, 53056, 102208},
                                          {8192, 104256, 202560},
                                          {65536, 820288, 1606720},
                                          {131072, 2165344, 4262496}};
    for (const auto& [length, single, doubled] : kOnlyPowersOfTwo ? of_64_bits : of_32_bits)
        EXPECT_EQ(kSingle ? single : doubled, size_or_refusal(length)) << length;
}

TEST(PlanSize, IsRefusedForTheKnownLengths) {
    for (const std::int32_t length : {0, 1, -1, 3, 5, 6, 7, 48, 192, INT32_MIN, INT32_MAX})
        EXPECT_EQ(kUntouched, size_or_refusal(length)) << length;
    EXPECT_EQ(kSingle || kOnlyPowersOfTwo, size_or_refusal(9) == kUntouched);
    EXPECT_EQ(kSingle || kOnlyPowersOfTwo, size_or_refusal(17) == kUntouched);
    EXPECT_EQ(kOnlyPowersOfTwo, size_or_refusal(33) == kUntouched);
    EXPECT_EQ(kOnlyPowersOfTwo, size_or_refusal(1 << 30) == kUntouched);
    EXPECT_EQ(kUntouched, size_or_refusal(kSingle ? 1 << 27 : 1 << 26));
    EXPECT_NE(kUntouched, size_or_refusal(kSingle ? 1 << 26 : 1 << 25));
}

// Reserve and blocks, and a node for each add that needs none. Longer plans wrap as they are
// summed.
TEST(PlanSize, IsWhatThePlanTakesAndANodeForEachHeadThatIsFilled) {
    for (std::int32_t power = 2; power > 0; power = power > 1 << 29 ? 0 : 2 * power) {
        for (const std::int32_t length : {power, power + 1}) {
            if (!accepted(length)) continue;
            const ExpectedPlan expected(length, {0}, {64});
            EXPECT_EQ(word(expected.end().value + 32 * expected.adds_into_heads()),
                      word(size_of_plan(length)))
                << length;
        }
    }
}

TEST(PlanSize, OfALeafIsExactAndOfATreeLongerThanItsUse) {
    for (const std::int32_t length : accepted_lengths(1 << 18)) {
        const auto used = static_cast<std::int32_t>(PlanBuffer(length).buffer().used()) + 64;
        const std::int32_t slack = size_of_plan(length) - used;
        EXPECT_EQ(slack == 0, length <= 32 && length % 2 == 0) << length;
        EXPECT_GE(slack, 0) << length;
    }
}

TEST(PlanSize, IsToldForTheAcceptedLengthsAlone) {
    for (std::int32_t length = -100000; length < 3000000; ++length)
        ASSERT_EQ(accepted(length), size_or_refusal(length) != kUntouched) << length;
}

// Where any of the sums may come near a power of two.
TEST(PlanSize, IsToldForTheAcceptedLengthsAloneAroundEveryPowerOfTwo) {
    for (int k = 2; k < 32; ++k) {
        for (std::int32_t offset = -5000; offset <= 5000; ++offset) {
            const auto length = static_cast<std::int32_t>((1U << k) + word(offset));
            ASSERT_EQ(accepted(length), size_or_refusal(length) != kUntouched) << length;
        }
    }
}

// Takes minutes; run by --gtest_also_run_disabled_tests.
TEST(PlanSize, DISABLED_IsToldForTheAcceptedLengthsAloneInTheWholeRange) {
    std::uint32_t length = 0;
    do {
        std::int32_t size = kUntouched;
        const auto value = static_cast<std::int32_t>(length);
        const bool told = EXPORTED(DCT4GetSize)(value, &size) == qsvStatusOk;
        if (told != accepted(value) || told == (size == kUntouched)) FAIL() << value;
    } while (++length != 0);
}

}  // namespace
}  // namespace qsvgen_test
