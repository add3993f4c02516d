#include "core_clock.hpp"

#include <algorithm>
#include <limits>

#include "batch_clock.hpp"

namespace bench {

namespace {

/** TSC cycles of one of a chain of additions. */
double CyclesOfAddition(int calls) {
    constexpr int kAdditions = 10;
    unsigned value = 0;
    const uint64_t batch = TimeBatch(calls, [&] {
#ifdef __aarch64__
        asm volatile(
            "add %w0, %w0, #1\n\tadd %w0, %w0, #1\n\tadd %w0, %w0, #1\n\tadd %w0, %w0, #1\n\t"
            "add %w0, %w0, #1\n\tadd %w0, %w0, #1\n\tadd %w0, %w0, #1\n\tadd %w0, %w0, #1\n\t"
            "add %w0, %w0, #1\n\tadd %w0, %w0, #1"
            : "+r"(value));
#else
        asm volatile(
            "addl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\t"
            "addl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0"
            : "+r"(value));
#endif
    });
    return static_cast<double>(batch) / (kAdditions * calls);
}

}  // namespace

double CoreCyclesPerTscCycle() {
    constexpr int kCalls = 2000;
    double tsc_cycles = std::numeric_limits<double>::infinity();
    for (int round = 0; round < 500; ++round)
        tsc_cycles = std::min(tsc_cycles, CyclesOfAddition(kCalls));
    return 1 / tsc_cycles;
}

double CoreCyclesPerTscCycleAfter(const std::function<void()>& work) {
    // The clock takes some hundred microseconds to become slower, and as long to recover: the work
    // is longer, and the additions are shorter.
    constexpr uint64_t kWorkCycles = 5'000'000;
    constexpr int kCalls = 500;
    double tsc_cycles = std::numeric_limits<double>::infinity();
    for (int round = 0; round < 50; ++round) {
        for (uint64_t cycles = 0; cycles < kWorkCycles;) cycles += TimeBatch(16, work);
        tsc_cycles = std::min(tsc_cycles, CyclesOfAddition(kCalls));
    }
    return 1 / tsc_cycles;
}

}  // namespace bench
