#pragma once

/**
 * @file
 * @brief Lays a network out on Binary64x2 vectors, each of which is one element of memory.
 */

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/layouts/complex_algebra.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

/** The kernel's graph over 2 N real elements. */
Graph lay_out_by_elements(const Network& network, const Signal& outputs, Direction direction);

/** Element n of the source. */
ComplexVector load_element(Graph& graph, int n);
/** Scales `value` and stores it as element k. */
void store_element(Graph& graph, const ComplexVector& value, int k);

}  // namespace dft_complex
