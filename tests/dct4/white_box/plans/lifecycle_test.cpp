/** @file @brief Making and destroying plans: what is refused, what is allocated, what is left. */

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <thread>

#include "support/address_space.hpp"
#include "support/expected_plan.hpp"
#include "support/fault.hpp"
#include "support/plan_buffer.hpp"
#include "support/platform_core.hpp"

namespace qsvgen_test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int32_t kLongest = kSingle ? 1 << 26 : 1 << 25;

constexpr std::array<std::int32_t, 14> kRefused = {
    0, 1, -1, 3, 5, 6, 7, 48, 192, -64, INT32_MIN, 2 * kLongest, 2 * kLongest + 1, 3 * kLongest};

/** Powers of two whose plan's size has wrapped around, and one more. */
std::vector<std::int32_t> wrapped_lengths() {
    if (kOnlyPowersOfTwo) return {};
    std::vector<std::int32_t> lengths = {1 << 30, (1 << 30) + 1};
    if (!kSingle) lengths.insert(lengths.end(), {1 << 29, (1 << 29) + 1});
    return lengths;
}

/** What the tables and scratch vectors of a tree take, as no arithmetic of 32 bits can tell. */
std::int64_t bytes_of_arrays(std::int32_t length) {
    std::int64_t splits = 0;
    std::int64_t twiddles = 0;
    for (std::int32_t points = length / ExpectedPlan::factor_of(length); points > 64;) {
        const std::int32_t factor = ExpectedPlan::factor_of(points);
        ++splits;
        twiddles += std::int64_t{2 * factor - 2} * 16 * (points / (2 * factor));
        points /= factor;
    }
    return (2 + splits) * length * static_cast<std::int64_t>(sizeof(Real)) + twiddles;
}

class Lifecycle : public testing::Test {
  protected:
    Lifecycle() { core() = PlatformCore(); }
    ~Lifecycle() override {
        if (core().only_block != nullptr) core().blocks.clear();
        for (void* block : core().blocks) std::free(block);
        core() = PlatformCore();
    }

    static PlatformCore& core() { return platform_core(); }
    static Plan* marked() { return reinterpret_cast<Plan*>(0x1234); }

    static void expect_no_traffic() {
        EXPECT_TRUE(core().sizes.empty());
        EXPECT_TRUE(core().freed.empty());
    }
};

TEST_F(Lifecycle, InitRefusesNullPointersBeforeItLooksAtTheLength) {
    Bytes buffer(4096, 0xA5);
    const Bytes before = buffer;
    for (const std::int32_t length : {64, 2, 48, -1}) {
        Plan* plan = marked();
        EXPECT_EQ(-8, EXPORTED(DCT4Init)(nullptr, length, buffer.data()));
        EXPECT_EQ(-8, EXPORTED(DCT4Init)(&plan, length, nullptr));
        EXPECT_EQ(-8, EXPORTED(DCT4Init)(nullptr, length, nullptr));
        EXPECT_EQ(marked(), plan);
        EXPECT_EQ(before, buffer);
    }
    expect_no_traffic();
}

TEST_F(Lifecycle, InitAllocRefusesANullPointerBeforeItLooksAtTheLength) {
    for (const std::int32_t length : {64, 2, 48, -1})
        EXPECT_EQ(-8, EXPORTED(DCT4InitAlloc)(nullptr, length)) << length;
    expect_no_traffic();
}

TEST_F(Lifecycle, FreeRefusesANullPointer) {
    EXPECT_EQ(-8, EXPORTED(DCT4Free)(nullptr));
    expect_no_traffic();
}

TEST_F(Lifecycle, InitRefusesUnsupportedLengthsAndLeavesThePlanPointer) {
    for (const std::int32_t length : kRefused) {
        ArenaBuffer buffer(1 << 16);
        Plan* plan = marked();
        EXPECT_EQ(-6, EXPORTED(DCT4Init)(&plan, length, buffer.head())) << length;
        EXPECT_EQ(marked(), plan) << length;
    }
    expect_no_traffic();
}

TEST_F(Lifecycle, AFailedInitReleasesTheScratchItDidNotTake) {
    constexpr std::int32_t kLength = kSingle ? 48 : 50;
    ArenaBuffer buffer(1 << 16);
    Plan* plan = nullptr;
    EXPECT_EQ(-6, EXPORTED(DCT4Init)(&plan, kLength, buffer.head()));
    // Where the length alone refuses nothing is begun.
    EXPECT_EQ(kOnlyPowersOfTwo ? 0U : 0U - (kLength * sizeof(Real) + 31) / 32 * 32, buffer.used());
}

TEST_F(Lifecycle, InitAllocRefusesUnsupportedLengthsBeforeItAllocates) {
    for (const std::int32_t length : kRefused) {
        Plan* plan = marked();
        EXPECT_EQ(-6, EXPORTED(DCT4InitAlloc)(&plan, length)) << length;
        EXPECT_EQ(marked(), plan) << length;
    }
    expect_no_traffic();
}

TEST_F(Lifecycle, AFailedAllocationIsToldAsANullPointerAndFreesNull) {
    core().refuses = true;
    std::vector<std::int32_t> lengths = wrapped_lengths();
    lengths.insert(lengths.end(), {2, 32, 64, 4096});
    for (const std::int32_t length : lengths) {
        core().sizes.clear();
        core().freed.clear();
        Plan* plan = marked();
        EXPECT_EQ(-8, EXPORTED(DCT4InitAlloc)(&plan, length)) << length;
        EXPECT_EQ(marked(), plan) << length;
        EXPECT_EQ(std::vector<std::int32_t>{size_of_plan(length)}, core().sizes) << length;
        EXPECT_EQ(std::vector<void*>{nullptr}, core().freed) << length;
    }
}

// The size query tells them apart by nothing: what it tells holds no plan.
TEST_F(Lifecycle, TheToldSizeHoldsTheArraysOfAllLengthsButThoseWhereItHasWrappedAround) {
    for (std::int32_t power = 64; power > 0; power = power > 1 << 29 ? 0 : 2 * power) {
        for (const std::int32_t length : {power, power + 1}) {
            std::int32_t size = 0;
            const bool told = EXPORTED(DCT4GetSize)(length, &size) == qsvStatusOk;
            const std::vector<std::int32_t> wrapped = wrapped_lengths();
            const bool is_wrapped =
                std::find(wrapped.begin(), wrapped.end(), length) != wrapped.end();
            EXPECT_EQ(told,
                      (power <= kLongest && (length == power || !kOnlyPowersOfTwo)) || is_wrapped)
                << length;
            if (power <= kLongest && !told) continue;
            if (told)
                EXPECT_EQ(size < bytes_of_arrays(length), is_wrapped) << length;
            else
                EXPECT_GT(bytes_of_arrays(length), INT32_MAX) << length;
        }
    }
}

TEST_F(Lifecycle, InitRefusesLengthsThatNothingHasSizedBeforeItTakesABlock) {
    std::vector<std::int32_t> lengths = wrapped_lengths();
    lengths.insert(lengths.end(), {2 * kLongest, 2 * kLongest + 1, kLongest + 2, INT32_MAX});
    for (const std::int32_t length : lengths) {
        const FencedMemory memory(Half::Lower, 4096);
        ASSERT_TRUE(memory.there());
        Plan* plan = marked();
        volatile QsvStatus status = qsvStatusOk;
        FaultCatcher catcher;
        EXPECT_FALSE(catcher.faults([&] {
            status = EXPORTED(DCT4Init)(&plan, length, memory.begin());
        })) << length;
        EXPECT_EQ(-6, status) << length;
        EXPECT_EQ(marked(), plan) << length;
        const std::uint8_t* const behind_root = memory.begin() + (kOnlyPowersOfTwo ? 0 : 64 + 160);
        EXPECT_EQ(memory.end(),
                  std::find_if(behind_root, const_cast<const std::uint8_t*>(memory.end()),
                               [](std::uint8_t byte) { return byte != FencedMemory::kUnwritten; }))
            << length;
    }
}

TEST_F(Lifecycle, InitAllocGivesBackTheBlockOfALengthWhoseSizeHasWrappedAround) {
    if (kOnlyPowersOfTwo) GTEST_SKIP() << "no size wraps around that is told";
    for (const std::int32_t length : wrapped_lengths()) {
        const FencedMemory memory(Half::Lower, 4096);
        ASSERT_TRUE(memory.there());
        core() = PlatformCore();
        core().only_block = memory.begin();
        Plan* plan = marked();
        volatile QsvStatus status = qsvStatusOk;
        FaultCatcher catcher;
        EXPECT_FALSE(catcher.faults([&] { status = EXPORTED(DCT4InitAlloc)(&plan, length); }))
            << length;
        EXPECT_EQ(-6, status) << length;
        EXPECT_EQ(marked(), plan) << length;
        EXPECT_EQ(std::vector<std::int32_t>{size_of_plan(length)}, core().sizes) << length;
        EXPECT_EQ(std::vector<void*>{memory.begin()}, core().freed) << length;
    }
}

TEST_F(Lifecycle, InitAllocTakesOneBlockOfTheToldSizeAndFreeGivesItBackOnce) {
    for (const std::int32_t length : accepted_lengths(1 << 16)) {
        core().sizes.clear();
        core().freed.clear();
        Plan* plan = nullptr;
        ASSERT_EQ(0, EXPORTED(DCT4InitAlloc)(&plan, length)) << length;
        EXPECT_EQ(std::vector<std::int32_t>{size_of_plan(length)}, core().sizes) << length;
        EXPECT_TRUE(core().freed.empty()) << length;
        auto* const root = reinterpret_cast<env1*>(plan);
        EXPECT_EQ(core().blocks.back(), root->arena) << length;

        EXPECT_EQ(0, EXPORTED(DCT4Free)(plan)) << length;
        EXPECT_EQ(1U, core().sizes.size()) << length;
        EXPECT_EQ(std::vector<void*>{core().blocks.back()}, core().freed) << length;
    }
}

// The core library of these tests keeps what is freed, and the bump pointer as it was then.
TEST_F(Lifecycle, FreeTakesDownTheTreeBeforeItGivesBackItsBuffer) {
    for (const std::int32_t length : accepted_lengths(1 << 17)) {
        Plan* plan = nullptr;
        ASSERT_EQ(0, EXPORTED(DCT4InitAlloc)(&plan, length)) << length;
        const Arena* const arena = reinterpret_cast<env1*>(plan)->arena;
        core().heads.clear();
        EXPECT_EQ(0, EXPORTED(DCT4Free)(plan)) << length;
        EXPECT_EQ(std::vector<std::uintptr_t>{reinterpret_cast<std::uintptr_t>(plan)}, core().heads)
            << length;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(plan), arena->bump) << length;
    }
}

TEST_F(Lifecycle, APlanInTheCallersBufferAllocatesNothing) {
    for (const std::int32_t length : {2, 64, 4096}) PlanBuffer plan(length);
    expect_no_traffic();
}

TEST_F(Lifecycle, ABufferMayBeUsedForPlanAfterPlan) {
    ArenaBuffer buffer(1 << 20);
    for (const std::int32_t length : {4096, 64, 2, 65536, 1024}) {
        Plan* plan = nullptr;
        EXPECT_EQ(0, EXPORTED(DCT4Init)(&plan, length, buffer.head())) << length;
        EXPECT_EQ(buffer.head() + 64, reinterpret_cast<std::uint8_t*>(plan)) << length;
        EXPECT_EQ(length, reinterpret_cast<env1*>(plan)->length);
    }
}

TEST_F(Lifecycle, PlansMadeAtOnceByEightThreadsAreThoseMadeAlone) {
    constexpr std::int32_t kLength = 8192;
    PlanBuffer alone(kLength);
    const auto same_bytes = [](const void* a, const void* b, std::size_t size) {
        return std::memcmp(a, b, size) == 0;
    };
    std::array<bool, 8> same = {};
    std::vector<std::thread> threads;
    for (bool& result : same) {
        threads.emplace_back([&] {
            result = true;
            for (int round = 0; round < 20; ++round) {
                PlanBuffer plan(kLength);
                const env8& twiddles = twiddles_of(*plan.splits().front());
                const auto twiddle_bytes = static_cast<std::size_t>(2 * twiddles.factor - 2) * 16 *
                                           static_cast<std::size_t>(twiddles.blocks);
                result = result &&
                         same_bytes(plan.rotations().table, alone.rotations().table,
                                    kLength * sizeof(Real)) &&
                         same_bytes(twiddles.table, twiddles_of(*alone.splits().front()).table,
                                    twiddle_bytes);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const bool result : same) EXPECT_TRUE(result);
}

}  // namespace
}  // namespace qsvgen_test
