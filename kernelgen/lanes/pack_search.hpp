#pragma once

/**
 * @file
 * @brief A search for the lanes of a graph: which of its nodes are computed side by side.
 *
 * After the packing of isomorphic statements (Larsen and Amarasinghe, "Exploiting superword level
 * parallelism with multimedia instruction sets", 2000), over the values of a whole kernel: a pack
 * of nodes that look alike for some steps around brings packs of their operands and of their users
 * with it. Those that lower the cost of the laned graph most are taken, until none does.
 */

#include <string>

#include "kernelgen/lanes/packs.hpp"

namespace kernelgen {

/** Packs by what they have grown from, in the order of growth: nodes by their numbers among those
 * that compute. */
struct PackSeeds {
    Spreading spreading = Spreading::Strict;
    std::vector<Pack> seeds = {};

    bool is_empty() const { return seeds.empty(); }
    /** "strict 3.17.25.40 9.12". */
    std::string to_string() const;
    /** Throws std::invalid_argument. */
    static PackSeeds of(const std::string& text);
};

/** What grows from seeds. Throws std::invalid_argument where a seed fits no longer. */
Packs grown(const Neighbourhood& nodes, const PackSeeds& seeds);

/** The graph of `kernel` laid out by packs that were found for it, `PackSeeds` in words. Throws
 * std::logic_error where it has not the same values. */
Graph laned_graph(const std::string& kernel, const Graph& graph, const std::string& packs);

/** Free decisions of the search. */
struct PackSearch {
    Spreading spreading = Spreading::Strict;
    /** Of the seeds that the search may begin with, the place of the one that it takes: a seed that
     * costs more may leave better ones behind. */
    int beginning = 0;
};

PackSeeds search_packs(const Neighbourhood& nodes, const PackSearch& search);

/** In words, the cheapest of what searches by several decisions find, `number` at most. */
std::vector<std::string> cheapest_packs(const Graph& graph, std::size_t number);

}  // namespace kernelgen
