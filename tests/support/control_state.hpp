#pragma once

/** @file @brief The floating-point control words of both units, set for a while. */

#include <xmmintrin.h>

#include <array>
#include <cstdint>
#include <cstring>

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

/** What FXSAVE stores of the x87 unit. */
class X87Registers {
  public:
    void save() { asm volatile("fxsave %0" : "=m"(image_)); }
    /** A bit for each register. */
    int in_use() const { return image_[4]; }
    /** By control, status and tags, and the eight registers; not by where the last one was used. */
    bool operator==(const X87Registers& other) const {
        if (std::memcmp(image_.data(), other.image_.data(), 5) != 0) return false;
        for (std::size_t i = 0; i < 8; ++i) {
            const std::size_t place = 32 + 16 * i;
            if (std::memcmp(&image_[place], &other.image_[place], 10) != 0) return false;
        }
        return true;
    }

  private:
    alignas(16) std::array<std::uint8_t, 512> image_ = {};
};

/** `call` must not touch the x87 unit itself. */
template <class Call>
void with_all_x87_registers_in_use(const Call& call, X87Registers& before, X87Registers& after) {
    std::array<std::uint32_t, 27> outside;
    asm volatile("fnsave %0" : "=m"(outside));
    asm volatile("fld1; fldl2t; fldl2e; fldpi; fldlg2; fldln2; fldz; fld1" : : : "memory");
    before.save();
    call();
    after.save();
    asm volatile("frstor %0" : : "m"(outside) : "memory");
}

}  // namespace qsvgen_test
