#include "upper_halves.hpp"

#include "support/upper_halves.hpp"

namespace bench {

bool AreUpperHalvesInUse() {
    return qsvgen_test::are_upper_halves_in_use().value_or(false);
}

void ClearUpperHalves() {
#ifndef __aarch64__
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx") != 0) asm volatile("vzeroupper");
#endif
}

}  // namespace bench
