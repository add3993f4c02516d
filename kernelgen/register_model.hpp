#pragma once

#include <vector>

#include "kernelgen/graph.hpp"

namespace kernelgen {

/**
 * Stack accesses (spills and reloads) that `order` needs on a machine of `registers` vector
 * registers, two-operand instructions and memory operands, if the register whose value is used
 * furthest away is given up first and values that need no spill (already on the stack, or loaded
 * from an array that is still unwritten) before others. Belady, "A study of replacement algorithms
 * for a virtual-storage computer", 1966.
 */
int stack_accesses(const Graph& graph, const std::vector<NodeId>& order, int registers);

}  // namespace kernelgen
