#pragma once

/** @file @brief The floating-point control and status registers of AArch64. */

#include <cstdint>

namespace qsvgen_test {

/** FPCR, and above it FPSR. */
using ControlState = std::uint64_t;

inline constexpr ControlState flags_of_status(std::uint32_t fpsr) {
    return static_cast<ControlState>(fpsr) << 32;
}

inline constexpr ControlState kControlMask = 0xFFFFFFFF;
inline constexpr ControlState kExceptionFlags = flags_of_status(0x9F);
inline constexpr ControlState kInvalid = flags_of_status(0x01);
inline constexpr ControlState kInexact = flags_of_status(0x10);
inline constexpr ControlState kEachFlag[] = {
    kInvalid, flags_of_status(0x02), flags_of_status(0x04), flags_of_status(0x08),
    kInexact, flags_of_status(0x80)};

inline constexpr ControlState kToNearest = 0;
inline constexpr ControlState kUpward = 1U << 22U;
inline constexpr ControlState kDownward = 2U << 22U;
inline constexpr ControlState kTowardZero = 3U << 22U;
inline constexpr ControlState kDenormalsAreZeroInAndOut = 1U << 24U;
/** Each NaN that comes of arithmetic is this one, whatever its operands are. */
inline constexpr ControlState kDefaultNan = 1U << 25U;

/** The usual one; denormals as zero; default NaNs; each other rounding; flags already raised. */
inline constexpr ControlState kStatesOfCallers[] = {
    kToNearest,     kDenormalsAreZeroInAndOut, kDefaultNan, kDownward, kUpward, kTowardZero,
    kExceptionFlags};

/** Each directed rounding; denormals as zero; default NaNs; all of that together. */
inline constexpr ControlState kUnusualModes[] = {
    kDownward,   kUpward,
    kTowardZero, kDenormalsAreZeroInAndOut,
    kDefaultNan, kTowardZero | kDenormalsAreZeroInAndOut | kDefaultNan};

inline ControlState control_state() {
    std::uint64_t fpcr;
    std::uint64_t fpsr;
    asm volatile("mrs %0, fpcr\n\tmrs %1, fpsr" : "=r"(fpcr), "=r"(fpsr) : : "memory");
    // Above the flags of exceptions stand conditions, and one of saturation.
    return (fpcr & kControlMask) | (fpsr << 32U & kExceptionFlags);
}
inline void set_control_state(ControlState state) {
    asm volatile("msr fpcr, %0\n\tmsr fpsr, %1"
                 :
                 : "r"(state & kControlMask), "r"((state & kExceptionFlags) >> 32U)
                 : "memory");
}

}  // namespace qsvgen_test
