#pragma once

/** @file @brief The floating-point control words of both of x86's units. */

#include <xmmintrin.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace qsvgen_test {

/** MXCSR. */
using ControlState = unsigned;

inline constexpr ControlState kControlMask = 0xFFC0;
inline constexpr ControlState kExceptionFlags = 0x003F;
inline constexpr ControlState kInvalid = 0x0001;
inline constexpr ControlState kInexact = 0x0020;
inline constexpr ControlState kEachFlag[] = {0x01, 0x02, 0x04, 0x08, 0x10, 0x20};

inline constexpr ControlState kToNearest = 0x1F80;
inline constexpr ControlState kDownward = 0x3F80;
inline constexpr ControlState kUpward = 0x5F80;
inline constexpr ControlState kTowardZero = 0x7F80;
inline constexpr ControlState kDenormalsAreZeroInAndOut = 0x9FC0;

/** The usual one; denormals as zero in or out; each other rounding; flags already raised. */
inline constexpr ControlState kStatesOfCallers[] = {kToNearest, 0x9F80,      0x1FC0, kDownward,
                                                    kUpward,    kTowardZero, 0x1FBF};

/** Each directed rounding; denormals as zero in and out; all of that together; every exception
 * traps. */
inline constexpr ControlState kUnusualModes[] = {
    kDownward, kUpward, kTowardZero, kDenormalsAreZeroInAndOut, 0xFFC0, 0x0000, 0xE040};

inline ControlState control_state() {
    return _mm_getcsr();
}
inline void set_control_state(ControlState state) {
    _mm_setcsr(state);
}

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
