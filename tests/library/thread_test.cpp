/** @file @brief Threads that work at once on their own data do not disturb each other. */

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <tuple>

#include "support/bits.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 300;

template <class E>
class Threads : public testing::Test {};
TYPED_TEST_SUITE(Threads, ElementTypes, ElementNames);

TYPED_TEST(Threads, EightAtOnceGetTheBitsOfOneAlone) {
    using Element = typename TypeParam::Element;
    using Array = PlacedArray<Element>;

    const auto signal_of = [](const Kernel<TypeParam>& kernel, int thread) {
        return random_source(kernel, static_cast<std::uint32_t>(100 + thread));
    };
    std::array<std::vector<std::vector<Element>>, kThreads> alone;
    for (int thread = 0; thread < kThreads; ++thread) {
        for (const auto& kernel : kernels<TypeParam>()) {
            alone[static_cast<std::size_t>(thread)].push_back(
                transform(kernel, signal_of(kernel, thread), qsvScaleBySqrtN));
        }
    }

    std::array<std::string, kThreads> first_failure;
    std::array<std::atomic<int>, std::tuple_size_v<KernelTable<TypeParam>>> arrived = {};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            const auto own = static_cast<std::size_t>(thread);
            std::vector<Array> sources;
            std::vector<Array> destinations;
            for (const auto& kernel : kernels<TypeParam>()) {
                // Half of the threads are on the unaligned path of the kernels that have one.
                const std::size_t offset = thread % 2 == 0 ? 0 : 4;
                sources.emplace_back(kernel.source_size(), offset);
                sources.back().set(signal_of(kernel, thread));
                destinations.emplace_back(kernel.destination_size(), offset);
            }
            // A thread stays in a kernel until all have arrived there, so that they do meet in it.
            for (std::size_t i = 0; i < kernels<TypeParam>().size(); ++i) {
                const auto& kernel = kernels<TypeParam>()[i];
                ++arrived[i];
                for (int round = 0; round < kRounds || arrived[i] < kThreads; ++round) {
                    if (round % kRounds == kRounds - 1) std::this_thread::yield();
                    kernel.run(sources[i].data(), destinations[i].data(), qsvScaleBySqrtN);
                    if (destinations[i].holds(alone[own][i]) || !first_failure[own].empty()) {
                        continue;
                    }
                    const auto same = same_bits<TypeParam>(alone[own][i], destinations[i].get());
                    first_failure[own] = describe(kernel, qsvScaleBySqrtN) + ": " + same.message();
                }
            }
        });
    }
    for (auto& thread : threads) thread.join();
    for (int thread = 0; thread < kThreads; ++thread) {
        EXPECT_EQ("", first_failure[static_cast<std::size_t>(thread)]) << "thread " << thread;
    }
}

}  // namespace
}  // namespace qsvgen_test
