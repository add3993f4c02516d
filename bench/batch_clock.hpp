#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "ticks.hpp"

namespace bench {

/** TSC cycles that a number of calls in a row take. */
template <typename Call>
uint64_t TimeBatch(int calls, Call call) {
    // The fences keep calls from starting before, or ending after, the clock is read.
    Fence();
    const uint64_t begin = Ticks();
    Fence();
    for (int i = 0; i < calls; ++i) call();
    Fence();
    return Ticks() - begin;
}

/** Calls that fill a batch: long against reading the clock, short against a time slice. */
template <typename Call>
int CallsPerBatch(Call call, int trial_calls = 16) {
    constexpr double kBatchCycles = 20000;
    uint64_t fastest = UINT64_MAX;
    for (int i = 0; i < 8; ++i) fastest = std::min(fastest, TimeBatch(trial_calls, call));
    return std::max(1, static_cast<int>(kBatchCycles * trial_calls / static_cast<double>(fastest)));
}

/** How fast the TSC counts, measured from construction to the question. */
class TscRate {
  public:
    double CyclesPerNanosecond() const {
        const std::chrono::duration<double, std::nano> elapsed = Clock::now() - start_;
        return static_cast<double>(Ticks() - start_cycles_) / elapsed.count();
    }

  private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point start_ = Clock::now();
    uint64_t start_cycles_ = Ticks();
};

}  // namespace bench
