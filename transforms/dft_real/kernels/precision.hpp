#pragma once

/**
 * @file
 * @brief What is done to a finished network of rows before it becomes a kernel.
 */

#include "kernelgen/graph/graph.hpp"

namespace dft_real {

/**
 * Joins constants: a value that is a row of products alone, or a doubled input, and that has no
 * other use than to be the one product of a row, gives its products their constants times that of
 * the row. The joined constant is the product of the two rounded ones, rounded.
 */
kernelgen::Graph with_products_joined(const kernelgen::Graph& graph);

/**
 * In a three-point butterfly whose operands a and b are widened for its row a - b/2 already, forms
 * the sum a + b that goes on to the product by sin(2 pi / 3), and nowhere else, from the widened
 * values: it is not rounded before the product, and costs no conversion of its own.
 */
kernelgen::Graph with_wide_sums(const kernelgen::Graph& graph);

/** The same network with every value in binary64 and no conversion. */
kernelgen::Graph in_binary64(const kernelgen::Graph& graph);

}  // namespace dft_real
