#pragma once

/**
 * @file
 * @brief A hash that two kernels share where they give the same bits.
 *
 * That of a node is made of its operation, its precision and the hashes and signs of its operands
 * (Merkle 1987), that of a kernel of its outputs by element; so it depends neither on how nodes are
 * numbered nor on lanes and orders.
 */

#include <string>

#include "kernelgen/values/value_graph.hpp"

namespace kernelgen {

/** Sixteen hexadecimal digits. */
std::string hash_of_values(const ValueGraph& values, const Outputs& outputs);

/** Of a graph unfolded, its inputs at the places of their elements. */
std::string hash_of_values(const Graph& graph);

}  // namespace kernelgen
