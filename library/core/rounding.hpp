#pragma once

/**
 * @file
 * @brief Rounding from binary64 to binary32 that waits for no earlier value of its register.
 */

namespace core {

/** As static_cast<float>, which on x86 writes a part of a register and so depends on the rest of it
 * unless the compiler clears that first. This one writes it all; the other half of `value`'s
 * register stems from loads, which leave zeros there. */
inline float rounded(double value) {
#ifdef __SSE2__
    float result;
    asm("cvtpd2ps %1, %0" : "=x"(result) : "x"(value));
    return result;
#else
    return static_cast<float>(value);
#endif
}

}  // namespace core
