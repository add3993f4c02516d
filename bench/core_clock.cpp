#include "core_clock.hpp"

#include <algorithm>
#include <limits>

#include "batch_clock.hpp"

namespace bench {

double CoreCyclesPerTscCycle() {
    constexpr int kAdditions = 10;
    constexpr int kCalls = 2000;
    double tsc_cycles = std::numeric_limits<double>::infinity();
    for (int round = 0; round < 500; ++round) {
        unsigned value = 0;
        const uint64_t batch = TimeBatch(kCalls, [&] {
            asm volatile(
                "addl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\t"
                "addl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0\n\taddl $1, %0"
                : "+r"(value));
        });
        tsc_cycles = std::min(tsc_cycles, static_cast<double>(batch) / (kAdditions * kCalls));
    }
    return 1 / tsc_cycles;
}

}  // namespace bench
