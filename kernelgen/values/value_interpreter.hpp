#pragma once

/** @file @brief Runs a value graph in IEEE arithmetic, node by node. */

#include <vector>

#include "kernelgen/values/value_graph.hpp"

namespace kernelgen {

/** The first `length` elements of the destination, zeros where nothing is written, for inputs that
 * stand in `source` by place. */
std::vector<double> interpret(const ValueGraph& values, const Outputs& outputs,
                              const std::vector<double>& source, double scale, int length);

}  // namespace kernelgen
