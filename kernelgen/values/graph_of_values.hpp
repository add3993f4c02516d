#pragma once

/** @file @brief From values back to a graph, one scalar node each, that can be put into an order
 * and written out. */

#include "kernelgen/values/value_graph.hpp"

namespace kernelgen {

/** Inputs are loads at their places, outputs stores at theirs; unfolded again, these are the same
 * values. */
Graph graph_of_values(const ValueGraph& values, const Outputs& outputs);

}  // namespace kernelgen
