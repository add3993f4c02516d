#pragma once

/**
 * @file
 * @brief From a length to the proven graphs of its real-input DFT kernels.
 */

#include "transforms/dft_real/kernels/real_kernel.hpp"
#include "transforms/dft_real/layouts/layouts.hpp"

namespace dft_real {

enum class Direction { Forward, Inverse };
inline constexpr Direction kDirections[] = {Direction::Forward, Direction::Inverse};

Family family_of(Direction direction, Layout layout);

/** The kernel of `length`, before anything of it has been proven. */
RealKernel described_dft_kernel(int length, Direction direction, Layout layout, Element element,
                                const Target& target = kernelgen::kReference);

/** The kernel of `length`, proven against the definition of the DFT, and to have the values of the
 * kernel of the CCS layout. */
RealKernel dft_kernel(int length, Direction direction, Layout layout, Element element,
                      const Target& target = kernelgen::kReference);

}  // namespace dft_real
