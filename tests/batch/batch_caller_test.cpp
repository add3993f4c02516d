/** @file @brief What a caller's stack, control state and other threads see of a batch. */

#include <gtest/gtest.h>
#include <pthread.h>

#include <thread>

#include "batch/support/placed_batch.hpp"
#include "support/upper_halves.hpp"

namespace qsvgen_test {
namespace {

template <class Real>
class BatchCaller : public testing::Test {};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(BatchCaller, Reals);

constexpr std::int32_t kCount = 37;

/** Bytes of stack that a call takes, beside those of the thread that makes it. */
class StackMeter {
  public:
    StackMeter() : stack_(kBytes) {
        none_ = used([] {});
    }

    template <class Call>
    std::size_t bytes_of(const Call& call) {
        return used(call) - none_;
    }

  private:
    static constexpr std::size_t kBytes = std::size_t{1} << 19;

    template <class Call>
    std::size_t used(const Call& call) {
        constexpr std::byte kPaint{0xC5};
        std::fill(stack_.begin(), stack_.end(), kPaint);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        const auto begin = (reinterpret_cast<std::uintptr_t>(stack_.data()) + 4095) / 4096 * 4096;
        pthread_attr_setstack(&attributes, reinterpret_cast<void*>(begin), kBytes - 8192);
        pthread_t thread;
        const auto run = [](void* argument) -> void* {
            (*static_cast<const Call*>(argument))();
            return nullptr;
        };
        EXPECT_EQ(0, pthread_create(&thread, &attributes, run, const_cast<Call*>(&call)));
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
        const auto deepest =
            std::find_if(stack_.begin(), stack_.end(), [](std::byte b) { return b != kPaint; });
        return static_cast<std::size_t>(stack_.end() - deepest);
    }

    std::vector<std::byte> stack_;
    std::size_t none_ = 0;
};

TYPED_TEST(BatchCaller, GivesAtMostSixtyFourKibibytesOfItsStack) {
    StackMeter meter;
    std::size_t most = 0;
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const Way& way : {kContiguous, kColumns, kWays[4]}) {
            PlacedBatch<TypeParam> source(way, kernel.source_elements, kCount, kernel.parts, 0);
            PlacedBatch<TypeParam> destination(way, kernel.destination_elements, kCount,
                                               kernel.parts, 0);
            const std::size_t bytes = meter.bytes_of(
                [&] { transform_batch(kernel, source, destination, kCount, qsvScaleBySqrtN); });
            EXPECT_LE(bytes, std::size_t{64} * 1024) << kernel.description() << ", " << way.name;
            most = std::max(most, bytes);
        }
    }
    this->RecordProperty("most_bytes_of_stack", static_cast<int>(most));
}

// Of zeros no sum and no product is inexact, whatever lies in lanes that hold no transform.
TYPED_TEST(BatchCaller, SeesNoExceptionOfLanesThatHoldNoTransform) {
    if (unused_parts_raise_flags()) GTEST_SKIP() << "single calls raise some, too";
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (std::int32_t count = 1; count <= 33; ++count) {
            for (const Way& way : {kContiguous, kColumns, kWays[4]}) {
                PlacedBatch<TypeParam> array(
                    way, std::max(kernel.source_elements, kernel.destination_elements), count,
                    kernel.parts, 0);
                EXPECT_EQ(0U, raised_by([&] {
                              transform_batch(kernel, array, array, count, qsvScaleNone);
                          }))
                    << kernel.description() << ", " << count << " times, " << way.name;
            }
            if (kernel.source_elements > 512) break;
        }
    }
}

TYPED_TEST(BatchCaller, FindsTheControlStateOfItsArithmeticAsItWas) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.size % 7 != 3) continue;
        PlacedBatch<TypeParam> source(kContiguous, kernel.source_elements, kCount, kernel.parts, 0);
        source.randomise(5);
        PlacedBatch<TypeParam> destination(kContiguous, kernel.destination_elements, kCount,
                                           kernel.parts, 0);
        ControlState after;
        {
            const ScopedControlState upward(kUpward);
            transform_batch(kernel, source, destination, kCount, qsvScaleNone);
            after = control_state();
        }
        EXPECT_EQ(kUpward, after & ~kExceptionFlags) << kernel.description();
    }
}

#if defined(__i386__) || defined(__x86_64__)
TYPED_TEST(BatchCaller, SeesNoUpperHalvesOfItsVectorsLeftInUse) {
    if (!are_upper_halves_in_use()) GTEST_SKIP() << "this processor does not tell";
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const Way& way : {kContiguous, kColumns, kWays[4]}) {
            PlacedBatch<TypeParam> source(way, kernel.source_elements, kCount, kernel.parts, 0);
            PlacedBatch<TypeParam> destination(way, kernel.destination_elements, kCount,
                                               kernel.parts, 0);
            if (*are_upper_halves_in_use()) asm volatile("vzeroupper");
            transform_batch(kernel, source, destination, kCount, qsvScaleBySqrtN);
            EXPECT_FALSE(*are_upper_halves_in_use()) << kernel.description() << ", " << way.name;
        }
    }
}
#endif

TYPED_TEST(BatchCaller, MayHaveThreadsShareASourceAndWriteElementsSideBySide) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 20;
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.size % 6 != 2 || kernel.source_elements > 512) continue;
        // Neighbouring columns belong to different threads, and share cache lines.
        PlacedBatch<TypeParam> source(kColumns, kernel.source_elements, kThreads * kCount,
                                      kernel.parts, 0);
        source.randomise(9);
        PlacedBatch<TypeParam> expected(kColumns, kernel.destination_elements, kThreads * kCount,
                                        kernel.parts, 0);
        PlacedBatch<TypeParam> destination(kColumns, kernel.destination_elements, kThreads * kCount,
                                           kernel.parts, 0);
        transform_singly(kernel, source, expected, kThreads * kCount, qsvScaleNone);
        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t) {
            threads.emplace_back([&, t] {
                const std::ptrdiff_t first = std::ptrdiff_t{t} * kCount * kernel.parts;
                for (int round = 0; round < kRounds; ++round)
                    kernel.batch({source.data() + first, source.stride, 1,
                                  destination.data() + first, destination.stride, 1, kernel.size,
                                  kCount, qsvScaleNone});
            });
        }
        for (auto& thread : threads) thread.join();
        EXPECT_TRUE(destination.is_same_as(expected))
            << kernel.description() << ": "
            << first_difference(kernel, expected, destination, kThreads * kCount);
    }
}

}  // namespace
}  // namespace qsvgen_test
