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

/** Throws std::logic_error where a kernel of `direction` and `layout` has not the values of the
 * reference target's, and of the kernel of the CCS layout. */
void prove_values(const RealKernel& kernel, Direction direction, Layout layout);

/** The kernel of `length`, proven against the definition of the DFT, and by its values. */
RealKernel dft_kernel(int length, Direction direction, Layout layout, Element element,
                      const Target& target = kernelgen::kReference);

}  // namespace dft_real
