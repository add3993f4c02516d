#pragma once

/** @file @brief The counter that the processor counts time by, whatever its clock: x86's TSC,
 * AArch64's virtual counter, which counts more slowly. */

#include <cstdint>

#ifndef __aarch64__
#include <x86intrin.h>
#endif

namespace bench {

inline uint64_t Ticks() {
#ifdef __aarch64__
    uint64_t ticks;
    asm volatile("mrs %0, cntvct_el0" : "=r"(ticks));
    return ticks;
#else
    return __rdtsc();
#endif
}

/** Keeps what follows from starting before what precedes has ended. */
inline void Fence() {
#ifdef __aarch64__
    asm volatile("isb" : : : "memory");
#else
    _mm_lfence();
#endif
}

}  // namespace bench
