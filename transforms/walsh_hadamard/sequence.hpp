#pragma once

/**
 * @file
 * @brief Shows that a kernel rounds as the reference sequence does: sum by sum, for all inputs.
 *
 * That the matrix is right does not show which sums were formed on the way. So the passes are run
 * over the nodes of a value graph instead of numbers: equal nodes give equal bits for any input.
 */

#include <string>

#include "kernelgen/values/value_graph.hpp"
#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

namespace walsh_hadamard {

/** Outputs of the stages of strides 1, 2, ..., N/2, times the scale factor. */
kernelgen::Outputs sums_of_reference(kernelgen::ValueGraph& values, int order, Element element);

/**
 * Outputs of the kernel's passes over a work buffer of exactly the promised size. Throws
 * std::out_of_range where one leaves its array, std::logic_error where one reads an element of the
 * work buffer that none has written.
 */
kernelgen::Outputs sums_of_kernel(kernelgen::ValueGraph& values, const Kernel& kernel);

/** Of all passes together. */
std::string hash_of_values(const Kernel& kernel);

}  // namespace walsh_hadamard
