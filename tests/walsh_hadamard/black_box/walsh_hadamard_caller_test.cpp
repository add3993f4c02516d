/**
 * @file
 * @brief What Walsh-Hadamard transforms leave to their caller: floating-point control state and
 * other threads' calls.
 */

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>

#include "support/control_state.hpp"
#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

#if defined(__i386__) || defined(__x86_64__)
constexpr std::uint16_t kX87Values[] = {0x037F, 0x027F, 0x007F, 0x077F, 0x0B7F, 0x0F7F};
#endif

template <class E>
class WalshHadamardCaller : public testing::Test {};
TYPED_TEST_SUITE(WalshHadamardCaller, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardCaller, FindsTheControlStateOfAllUnitsAsItWas) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        for (const auto& placement : kPlacements) {
            PlacedArray<typename TypeParam::Real> source(kernel.size(), placement.source);
            PlacedArray<typename TypeParam::Real> destination(kernel.size(), placement.destination);
            source.set(random_signal<TypeParam>(kernel.size(), 50));
            for (const std::int32_t flag : {0, 1, 2, 4, 8}) {
                for (const ControlState value : kStatesOfCallers) {
                    ControlState after;
                    {
                        const ScopedControlState scope(value);
                        kernel.run(source.data(), destination.data(), flag, nullptr);
                        after = control_state();
                    }
                    EXPECT_EQ(value & kControlMask, after & kControlMask) << describe(kernel, flag);
                }
#if defined(__i386__) || defined(__x86_64__)
                for (const auto value : kX87Values) {
                    std::uint16_t control;
                    std::uint16_t tags;
                    {
                        const ScopedX87ControlWord scope(value);
                        kernel.run(source.data(), destination.data(), flag, nullptr);
                        control = x87_control_word();
                        tags = x87_tag_word();
                    }
                    EXPECT_EQ(value, control) << describe(kernel, flag);
                    EXPECT_EQ(0xFFFF, tags) << describe(kernel, flag);
                }
#endif
            }
        }
    }
}

TYPED_TEST(WalshHadamardCaller, InEightThreadsAtOnceGetsTheBitsOfTheSequence) {
    constexpr std::size_t kThreads = 8;
    constexpr int kRounds = 40;
    std::array<std::string, kThreads> first_failure;
    std::array<std::atomic<std::size_t>, kHighestOrder> arrived = {};
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            // Half of the threads are on the unaligned path, half bring no buffer.
            const std::size_t offset = thread % 2 == 0 ? 0 : 4;
            const bool with_buffer = thread % 4 < 2;
            for (const auto& kernel : order_kernels<TypeParam>()) {
                const auto x =
                    random_signal<TypeParam>(kernel.size(), static_cast<std::uint32_t>(thread));
                const auto expected = reference_wht<TypeParam>(x, qsvScaleBySqrtN);
                PlacedArray<typename TypeParam::Real> source(x.size(), offset);
                PlacedArray<typename TypeParam::Real> destination(x.size(), offset);
                WorkBuffer buffer(kernel.buffer_bytes);
                source.set(x);
                auto& here = arrived[static_cast<std::size_t>(kernel.order - kLowestOrder)];
                ++here;
                // A thread stays in a kernel until all have arrived, so that they do meet in it.
                for (int round = 0; round < kRounds || here < kThreads; ++round) {
                    if (round % kRounds == kRounds - 1) std::this_thread::yield();
                    kernel.run(source.data(), destination.data(), qsvScaleBySqrtN,
                               with_buffer ? buffer.data() : nullptr);
                    if (destination.holds(expected) || !first_failure[thread].empty()) continue;
                    first_failure[thread] =
                        describe(kernel, qsvScaleBySqrtN) + ": " +
                        same_bits<TypeParam>(expected, destination.get()).message();
                }
            }
        });
    }
    for (auto& thread : threads) thread.join();
    for (std::size_t thread = 0; thread < kThreads; ++thread)
        EXPECT_EQ("", first_failure[thread]) << "thread " << thread;
}

}  // namespace
}  // namespace qsvgen_test
