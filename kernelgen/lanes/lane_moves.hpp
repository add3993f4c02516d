#pragma once

/** @file @brief Vectors of four lanes out of lanes of others, by few moves. */

#include <array>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** A lane of a vector of four. */
struct LaneOrigin {
    Ref vector;
    int lane;
};

/** The vector whose lanes these are. Of doubles, halves may be brought together first or pairs
 * within them, whichever takes fewer moves beside those that the graph has. */
Ref four_lanes(Graph& graph, const std::array<LaneOrigin, 4>& wanted);

/** A vector whose lower or upper half begins with two values, and the lane of the first. */
LaneOrigin in_one_half(Graph& graph, const LaneOrigin& first, const LaneOrigin& second);

}  // namespace kernelgen
