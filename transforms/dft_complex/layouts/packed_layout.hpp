#pragma once

/**
 * @file
 * @brief Lays a network out on Binary32x4 vectors: groups, lanes, regrouping, loads and stores.
 */

#include <vector>

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/layouts/lane_groups.hpp"
#include "transforms/dft_complex/rules/variant.hpp"

namespace dft_complex {

struct PackedKernel {
    Graph graph;
    std::vector<LaneChoice> choices;  ///< what each batch took, in order of the batches
};

/**
 * The kernel's graph over 2 N real elements. Batches beyond the end of `choices` take the choice
 * that costs least at that point; std::invalid_argument where there are more choices than batches,
 * std::logic_error where transforms of one batch are of several forms.
 */
PackedKernel lay_out_packed(const Network& network, const Signal& outputs, Direction direction,
                            LanePolicy policy, const std::vector<LaneChoice>& choices);

/** What lay_out_packed minimises: arithmetic fills two ports, shuffles and half loads one. */
double port_cost(const Graph& graph, std::size_t first_node, std::size_t past_node);

}  // namespace dft_complex
