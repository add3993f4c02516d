/** @file @brief Plans stay in buffers of the told size, wherever these stand. */

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "support/address_space.hpp"
#include "support/fault.hpp"
#include "support/plan_buffer.hpp"

namespace qsvgen_test {
namespace {

constexpr std::size_t kLargest = 256 << 10;

class PlanInABuffer : public testing::Test {
  protected:
    /** A plan in a buffer of the told size that begins at `remainder` modulo 32, and ends `gap`
     * bytes before a forbidden page. */
    struct Placed {
        std::uint8_t* head;
        std::uint8_t* end;
        Plan* plan;
        bool faulted;
    };

    Placed place(const FencedMemory& memory, std::int32_t length, std::uint32_t remainder) {
        const auto size = static_cast<std::uint32_t>(size_of_plan(length));
        std::uint8_t* head = memory.end() - size;
        while (reinterpret_cast<std::uintptr_t>(head) % 32 != remainder) --head;
        std::memset(head - 64, FencedMemory::kUnwritten,
                    static_cast<std::size_t>(memory.end() - head) + 64);
        Placed placed = {head, head + size, nullptr, false};
        volatile QsvStatus status = qsvStatusOk;
        placed.faulted = catcher_.faults(
            [&] { status = EXPORTED(DCT4Init)(&placed.plan, length, placed.head); });
        EXPECT_EQ(0, status) << length;
        return placed;
    }

    static bool unwritten(const std::uint8_t* begin, const std::uint8_t* end) {
        return std::all_of(begin, end,
                           [](std::uint8_t byte) { return byte == FencedMemory::kUnwritten; });
    }

    /** Everything but where the first block stands. */
    static void expect_inside(const FencedMemory& memory, const Placed& placed,
                              std::int32_t length) {
        const auto remainder = reinterpret_cast<std::uintptr_t>(placed.head) % 32;
        EXPECT_FALSE(placed.faulted) << length << " at remainder " << remainder;
        EXPECT_TRUE(unwritten(placed.head - 64, placed.head))
            << length << " at remainder " << remainder << " writes before its buffer";
        EXPECT_TRUE(unwritten(placed.end, memory.end()))
            << length << " at remainder " << remainder << " writes behind its buffer";
        EXPECT_TRUE(
            unwritten(placed.head + sizeof(Arena), reinterpret_cast<std::uint8_t*>(placed.plan)))
            << length << " at remainder " << remainder << " writes into its reserve";
    }

    FaultCatcher catcher_;
};

TEST_F(PlanInABuffer, BelowTheMiddleOfTheAddressesStaysInItAtEveryRemainder) {
    const FencedMemory memory(Half::Lower, kLargest);
    ASSERT_TRUE(memory.there());
    for (const std::int32_t length : accepted_lengths(8192)) {
        for (std::uint32_t remainder = 0; remainder < 32; ++remainder) {
            const Placed placed = place(memory, length, remainder);
            expect_inside(memory, placed, length);
            EXPECT_EQ(placed.head + 64 - remainder, reinterpret_cast<std::uint8_t*>(placed.plan))
                << length;
        }
    }
}

TEST_F(PlanInABuffer, AboveTheMiddleOfTheAddressesStaysInItOn16ByteBoundaries) {
    if (sizeof(void*) == 8) GTEST_SKIP() << "addresses of 64 bits have no upper half";
    const FencedMemory memory(Half::Upper, kLargest);
    if (!memory.there()) GTEST_SKIP() << "the system has no memory there";
    for (const std::int32_t length : accepted_lengths(8192)) {
        for (const std::uint32_t remainder : {0U, 16U})
            expect_inside(memory, place(memory, length, remainder), length);
    }
}

TEST_F(PlanInABuffer, OfATreeAboveTheMiddleOfTheAddressesStaysInItAtEveryRemainder) {
    if (sizeof(void*) == 8) GTEST_SKIP() << "addresses of 64 bits have no upper half";
    const FencedMemory memory(Half::Upper, kLargest);
    if (!memory.there()) GTEST_SKIP() << "the system has no memory there";
    for (const std::int32_t length : accepted_lengths(8192)) {
        if (length <= 32 && length % 2 == 0) continue;
        for (std::uint32_t remainder = 0; remainder < 32; ++remainder)
            expect_inside(memory, place(memory, length, remainder), length);
    }
}

// The remainder is that of a signed division: negative there, so that the reserve grows by it.
TEST_F(PlanInABuffer, AboveTheMiddleOfTheAddressesBeginsOnABoundaryFurtherOn) {
    if (sizeof(void*) == 8) GTEST_SKIP() << "addresses of 64 bits have no upper half";
    const FencedMemory memory(Half::Upper, kLargest);
    if (!memory.there()) GTEST_SKIP() << "the system has no memory there";
    for (std::uint32_t remainder = 0; remainder < 32; ++remainder) {
        const Placed placed = place(memory, 64, remainder);
        const std::uint32_t reserve = 64 + (remainder == 0 ? 0 : 32 - remainder);
        EXPECT_EQ(placed.head + reserve, reinterpret_cast<std::uint8_t*>(placed.plan)) << remainder;
        EXPECT_EQ(0U, reinterpret_cast<std::uintptr_t>(placed.plan) % 32) << remainder;
    }
}

// What the interface warns of: up to eleven bytes more than told.
TEST_F(PlanInABuffer, OfALeafAboveTheMiddleOfTheAddressesTakesMoreAtTheFirstElevenRemainders) {
    if (sizeof(void*) == 8) GTEST_SKIP() << "addresses of 64 bits have no upper half";
    const FencedMemory memory(Half::Upper, kLargest);
    if (!memory.there()) GTEST_SKIP() << "the system has no memory there";
    for (std::uint32_t remainder = 0; remainder < 32; ++remainder) {
        std::uint8_t* const head = memory.begin() + 4096 + remainder;
        std::memset(head - 64, FencedMemory::kUnwritten, 1024);
        Plan* plan = nullptr;
        ASSERT_EQ(0, EXPORTED(DCT4Init)(&plan, 16, head));
        const std::uint8_t* last = head + 512;
        while (last[-1] == FencedMemory::kUnwritten) --last;
        const std::ptrdiff_t expected =
            remainder >= 1 && remainder <= 11 ? 12 - static_cast<int>(remainder) : 0;
        EXPECT_EQ(expected, std::max<std::ptrdiff_t>(0, last - (head + size_of_plan(16))))
            << remainder;
    }
}

}  // namespace
}  // namespace qsvgen_test
