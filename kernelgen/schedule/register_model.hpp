#pragma once

#include <vector>

#include "kernelgen/graph/graph.hpp"
#include "targets/target.hpp"

namespace kernelgen {

/** What holding the values of a kernel costs beyond its own operations. */
struct RegisterTraffic {
    int stack_accesses = 0;  ///< spills and reloads
    int copies = 0;  ///< of operands that an instruction would overwrite before their last use

    int total() const { return stack_accesses + copies; }
};

/**
 * The traffic of `order` on a machine of the target's registers and operands, if the register whose
 * value is used furthest away is given up first and values that need no spill (already on the
 * stack, or loaded from an array that is still unwritten) before others. Belady, "A study of
 * replacement algorithms for a virtual-storage computer", 1966.
 */
RegisterTraffic register_traffic(const Graph& graph, const std::vector<NodeId>& order,
                                 const Target& target);

}  // namespace kernelgen
