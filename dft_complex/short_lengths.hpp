#pragma once

/**
 * @file
 * @brief The scalar single-precision kernels of lengths 2 to 5, laid down to the bit.
 *
 * Lengths 3 and 5 form their products in binary64 and round each result to binary32 once; the order
 * of all operations is part of what callers may rely on.
 */

#include "dft_complex/packed_layout.hpp"

namespace dft_complex {

inline constexpr int kLongestShortLength = 5;

Graph short_length(int length, Direction direction);

}  // namespace dft_complex
