#pragma once

/**
 * @file
 * @brief Runs a graph in IEEE arithmetic, node by node: what a compiled kernel must give bit for
 * bit.
 *
 * Binary32 values travel as doubles that hold them exactly; each operation is done in the node's
 * own precision, in round-to-nearest.
 */

#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** Outputs of the graph for `source` under `scale`, both in real elements. */
std::vector<double> interpret(const Graph& graph, const std::vector<double>& source, double scale,
                              int outputs);

}  // namespace kernelgen
