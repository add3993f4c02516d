#pragma once

/**
 * @file
 * @brief Lanes of single precision by the least modelled cost: one batch at a time, until none gets
 * better.
 */

#include <limits>

#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace dft_complex {

/** A bound that no kernel reaches. */
inline constexpr int kUnboundOperations = std::numeric_limits<int>::max();

/** Instructions that the kernel is expected to take in the order of `schedule`. */
int instructions(const Kernel& kernel, const kernelgen::Schedule& schedule);

/** The forward kernel by the rule, from its plain lanes on; those that cost more than `bound` sums
 * and products are taken for none better. */
Kernel with_tuned_lanes(const Rule& rule, int bound, const Target& target);

/** The forward kernel of a published length, from the lanes of the reference target on, by those
 * alone that leave its values as they are; the bound is the table's. */
Kernel with_lanes_of_same_values(int length, const Target& target);

}  // namespace dft_complex
