#pragma once

/**
 * @file
 * @brief From a length to the proven graphs of its real-input DFT kernels.
 */

#include "dft_real/layouts.hpp"
#include "dft_real/real_kernel.hpp"

namespace dft_real {

enum class Direction { Forward, Inverse };
inline constexpr Direction kDirections[] = {Direction::Forward, Direction::Inverse};

Family family_of(Direction direction, Layout layout);

/** The kernel of `length`, proven against the definition of the DFT. */
RealKernel dft_kernel(int length, Direction direction, Layout layout, Element element);

}  // namespace dft_real
