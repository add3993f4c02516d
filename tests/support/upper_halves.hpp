#pragma once

/** @file @brief Whether parts of vector registers beyond 16 bytes are in use, which slows a
 * caller's own code for vectors of 16 bytes. */

#include <optional>

#ifndef __aarch64__
#include <cpuid.h>
#endif

namespace qsvgen_test {

/** Nothing where the processor does not tell, or has none. */
inline std::optional<bool> are_upper_halves_in_use() {
#ifdef __aarch64__
    return {};
#else
    constexpr unsigned kExtendedState = 0xD;
    constexpr unsigned kTellsWhatIsInUse = 1U << 2U;
    constexpr unsigned kUpperHalves = 1U << 2U;
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    if (__get_cpuid_count(kExtendedState, 1, &eax, &ebx, &ecx, &edx) == 0 ||
        (eax & kTellsWhatIsInUse) == 0)
        return {};
    unsigned in_use = 0;
    asm volatile("xgetbv" : "=a"(in_use), "=d"(edx) : "c"(1));
    return (in_use & kUpperHalves) != 0;
#endif
}

}  // namespace qsvgen_test
