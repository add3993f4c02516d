#pragma once

/**
 * @file
 * @brief Signed 32-bit arithmetic that wraps around. Sizes of plans are promised as it makes them,
 * also where they leave the range, which the language leaves undefined for signed operands.
 */

#include <cstdint>

namespace plan {

/** A sum, difference or product of integers modulo 2^32, taken back as a signed value. */
class Wrapping {
  public:
    constexpr Wrapping(std::int32_t value) : bits_(static_cast<std::uint32_t>(value)) {}
    constexpr std::int32_t value() const { return static_cast<std::int32_t>(bits_); }

    friend constexpr Wrapping operator+(Wrapping a, Wrapping b) {
        return Wrapping(a.bits_ + b.bits_);
    }
    friend constexpr Wrapping operator-(Wrapping a, Wrapping b) {
        return Wrapping(a.bits_ - b.bits_);
    }
    friend constexpr Wrapping operator*(Wrapping a, Wrapping b) {
        return Wrapping(a.bits_ * b.bits_);
    }

  private:
    constexpr explicit Wrapping(std::uint32_t bits) : bits_(bits) {}

    std::uint32_t bits_;
};

}  // namespace plan
