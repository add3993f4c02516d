#pragma once

/** @file @brief The transpose of a block of as many vectors as each has lanes. */

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** In place; two vectors of two lanes or four of four. Lane i of vector j becomes lane j of i. */
void transpose(Graph& graph, Ref* vectors);

}  // namespace kernelgen
