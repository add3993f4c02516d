#pragma once

/** @file @brief What the operations of a graph cost, to compare its forms in lanes. */

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** In sums of one vector, as processors with vectors of 32 bytes run them: two sums or products a
 * cycle, lanes moved by the units that sum, a conversion in two steps. */
double operation_cost(const Graph& graph);

}  // namespace kernelgen
