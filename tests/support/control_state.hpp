#pragma once

/** @file @brief The floating-point control words of both units, set for a while. */

#include <xmmintrin.h>

#include <array>
#include <cstdint>

namespace qsvgen_test {

/** Exception flags may be raised by arithmetic; all else in MXCSR is control. */
inline constexpr unsigned kMxcsrControlMask = 0xFFC0;

class ScopedMxcsr {
  public:
    explicit ScopedMxcsr(unsigned value) : old_(_mm_getcsr()) { _mm_setcsr(value); }
    ~ScopedMxcsr() { _mm_setcsr(old_); }
    ScopedMxcsr(const ScopedMxcsr&) = delete;
    ScopedMxcsr& operator=(const ScopedMxcsr&) = delete;

  private:
    unsigned old_;
};

inline std::uint16_t x87_control_word() {
    std::uint16_t word;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

class ScopedX87ControlWord {
  public:
    explicit ScopedX87ControlWord(std::uint16_t value) : old_(x87_control_word()) { load(value); }
    ~ScopedX87ControlWord() { load(old_); }
    ScopedX87ControlWord(const ScopedX87ControlWord&) = delete;
    ScopedX87ControlWord& operator=(const ScopedX87ControlWord&) = delete;

  private:
    static void load(std::uint16_t value) { asm volatile("fldcw %0" : : "m"(value) : "memory"); }

    std::uint16_t old_;
};

/** Two bits for each x87 register; all set where the register stack is empty. */
inline std::uint16_t x87_tag_word() {
    std::array<std::uint32_t, 7> environment;
    // Storing the environment masks all exceptions, so it is loaded back.
    asm volatile("fnstenv %0\n\tfldenv %0" : "+m"(environment));
    return static_cast<std::uint16_t>(environment[2]);
}

}  // namespace qsvgen_test
