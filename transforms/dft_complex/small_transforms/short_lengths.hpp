#pragma once

/**
 * @file
 * @brief The kernels of lengths 2 to 5, laid down to the bit.
 *
 * The order of all operations is part of what callers may rely on. The inverse is the forward
 * transform with outputs k and N - k exchanged.
 */

#include "transforms/dft_complex/layouts/complex_algebra.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

inline constexpr int kLongestShortLength = 5;

/** Single precision in scalars: lengths 3 and 5 form their products in binary64 and round each
 * result to binary32 once. */
Graph short_length(int length, Direction direction);

/** Lengths that have a kernel of the same values in vectors of two elements: 2 and 4. */
bool is_length_of_pairs(int length);
Graph short_length_by_pairs(int length, Direction direction);

/** Double precision, an element a vector. */
Graph short_length_by_elements(int length, Direction direction);

}  // namespace dft_complex
