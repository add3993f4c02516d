/** @file @brief Short plans serve any number of threads, long ones a thread each. */

#include <array>
#include <atomic>
#include <thread>

#include "support/dct4.hpp"

namespace qsvgen_test {
namespace {

constexpr int kThreads = 8;

/** Runs `rounds` transforms at once on all threads and counts the wrong ones. */
template <class PlanOfThread>
int wrong_results(std::int32_t length, int rounds, const PlanOfThread& plan) {
    std::array<Signal, kThreads> sources;
    std::array<Signal, kThreads> expected;
    for (int i = 0; i < kThreads; ++i) {
        const auto own = static_cast<std::size_t>(i);
        sources[own] = random_signal<E>(word(length), 100 + word(i));
        expected[own] = transformed(sources[own]);
    }
    std::atomic<int> arrived = 0;
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            const auto own = static_cast<std::size_t>(i);
            Signal y(word(length));
            ++arrived;
            // None is done before all have begun, so that they do meet.
            for (int round = 0; round < rounds || arrived < kThreads; ++round) {
                if (round % rounds == rounds - 1) std::this_thread::yield();
                EXPORTED(DCT4)(sources[own].data(), y.data(), plan(i));
                wrong += first_difference<E>(expected[own], y) >= 0;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    return wrong;
}

TEST(Dct4Threads, EightShareAShortPlan) {
    for (std::int32_t length : transform_lengths(32)) {
        Plan* const shared = plan_of(plan_for(length));
        EXPECT_EQ(0, wrong_results(length, 2000, [=](int) { return shared; }))
            << "length " << length;
    }
}

TEST(Dct4Threads, EightWithALongPlanEachDoNotDisturbEachOther) {
    for (std::int32_t length : {64, 1024, 4096}) {
        std::vector<std::unique_ptr<PlanBuffer>> plans;
        for (int i = 0; i < kThreads; ++i) plans.push_back(std::make_unique<PlanBuffer>(length));
        EXPECT_EQ(0, wrong_results(length, 50, [&](int i) { return plan_of(*plans[word(i)]); }))
            << "length " << length;
    }
}

}  // namespace
}  // namespace qsvgen_test
