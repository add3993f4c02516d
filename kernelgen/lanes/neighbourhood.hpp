#pragma once

/**
 * @file
 * @brief What the search for lanes asks of a graph: which nodes are alike, and which depend on
 * which.
 */

#include <cstdint>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** Nodes here are those that compute: what is given and stores are none, and loads only operands.
 */
class Neighbourhood {
  public:
    explicit Neighbourhood(const Graph& graph);

    const Graph& graph() const { return graph_; }
    const std::vector<NodeId>& live() const { return live_; }

    /** The nodes that compute, in their order. What a layout does to loads and stores leaves their
     * numbers alone. */
    const std::vector<NodeId>& computing() const { return computing_; }

    /** Operands that are not given. */
    const std::vector<NodeId>& inputs(NodeId id) const { return inputs_[at(id)]; }
    /** Users but stores. */
    const std::vector<NodeId>& users(NodeId id) const { return users_[at(id)]; }

    bool computes(NodeId id) const;
    /** A constant or the scale factor, in whatever precision. */
    bool is_given(NodeId id) const;
    /** Whether two nodes do the same to their operands: sums and differences do. */
    bool are_alike(NodeId a, NodeId b) const { return colours_[0][at(a)] == colours_[0][at(b)]; }
    bool depends(NodeId user, NodeId operand) const;

    /** Nodes of one colour are alike up to so many steps away; more rounds tell more of them
     * apart. */
    static constexpr int kRounds = 6;
    std::uint64_t colour(NodeId id, int rounds) const {
        return colours_[static_cast<std::size_t>(rounds)][at(id)];
    }
    /** Of all that a node is computed from. */
    std::uint64_t colour_of_cone(NodeId id) const { return cones_[at(id)]; }

  private:
    static std::size_t at(NodeId id) { return static_cast<std::size_t>(id); }

    std::uint64_t kind(NodeId id) const;
    std::uint64_t refined(NodeId id, const std::vector<std::uint64_t>& colours) const;
    void find_ancestors();

    const Graph& graph_;
    std::vector<NodeId> live_;
    std::vector<NodeId> computing_;
    std::vector<std::vector<NodeId>> inputs_;
    std::vector<std::vector<NodeId>> users_;
    std::vector<int> stores_;
    std::vector<std::vector<std::uint64_t>> colours_;
    std::vector<std::uint64_t> cones_;
    std::vector<std::vector<bool>> ancestors_;
};

}  // namespace kernelgen
