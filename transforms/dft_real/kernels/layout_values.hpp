#pragma once

/**
 * @file
 * @brief Shows that the kernels of the three layouts round alike.
 *
 * A layout is where values are: a spectrum holds the same bits in each, and gives the same bits
 * back. Only the zeros of CCS are its own.
 */

#include "transforms/dft_real/kernels/real_dft_kernel.hpp"

namespace dft_real {

/** Throws std::logic_error where the values of `kernel`, which is of `direction` and `layout`, are
 * not those of the CCS kernel of its length and element, but for their places. */
void prove_same_values_as_ccs(const RealKernel& kernel, Direction direction, Layout layout);

}  // namespace dft_real
