#include "upper_halves.hpp"

#include <cpuid.h>

#include <cstdint>

namespace bench {

bool AreUpperHalvesInUse() {
    constexpr unsigned kExtendedState = 0xD;
    constexpr unsigned kTellsWhatIsInUse = 1U << 2U;
    constexpr unsigned kUpperHalves = 1U << 2U;
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    if (__get_cpuid_count(kExtendedState, 1, &eax, &ebx, &ecx, &edx) == 0 ||
        (eax & kTellsWhatIsInUse) == 0)
        return false;
    uint32_t in_use = 0;
    asm volatile("xgetbv" : "=a"(in_use), "=d"(edx) : "c"(1));
    return (in_use & kUpperHalves) != 0;
}

void ClearUpperHalves() {
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx") != 0) asm volatile("vzeroupper");
}

}  // namespace bench
