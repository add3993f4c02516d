#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "lapped_transform.hpp"

namespace mdct_codec {

inline constexpr int kFewestBits = 2;
inline constexpr int kMostBits = 16;

/** Groups of neighbouring coefficients that share a scale. */
inline constexpr size_t kGroups = 16;
inline constexpr size_t kGroupSize = kBands / kGroups;

/** What would be stored of a frame. */
struct CodedFrame {
    /** Of each group: the power of the fourth root of 2 that no coefficient exceeds. */
    std::array<std::int8_t, kGroups> scales;
    std::array<std::int16_t, kBands> levels;  ///< of the coefficients, `bits` bits each
};

CodedFrame Quantise(const Coefficients& coefficients, int bits);
Coefficients Dequantise(const CodedFrame& frame, int bits);

/** Bits that a coded frame takes. */
size_t FrameBits(int bits);

}  // namespace mdct_codec
