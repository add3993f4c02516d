#pragma once

/** @file @brief The transpose of a block of as many vectors as 16 bytes have lanes. */

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** Lanes of 16 bytes, among which shuffles are cheap. */
int lanes_in_piece(Type type);

/** In place; two vectors of binary64 or four of binary32. In each 16 bytes, lane i of vector j
 * becomes lane j of i. */
void transpose(Graph& graph, Ref* vectors);

}  // namespace kernelgen
