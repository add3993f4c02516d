#pragma once

/**
 * @file
 * @brief A graph written anew, node by node: what the passes over finished networks derive from.
 */

#include <map>
#include <vector>

#include "transforms/dft_real/decompositions/row_arithmetic.hpp"

namespace dft_real {

/** Copies what the stores of a graph need, operands before users. */
class GraphCopy {
  public:
    explicit GraphCopy(const Graph& from);
    virtual ~GraphCopy() = default;

    Graph made();

  protected:
    /** The node itself, of the copies of its operands; a pass overrides what it changes. */
    virtual Ref copy(NodeId id, const kernelgen::Node& n);

    Ref copied(NodeId id) const { return done_.at(id); }
    const Exact& constant(NodeId id) const;
    /** Nodes that take `id`, in the order in which they stand. */
    const std::vector<NodeId>& users(NodeId id) const { return users_.at(id); }
    bool has_one_user(NodeId id) const { return users(id).size() == 1; }
    bool is_constant_product(const kernelgen::Node& n) const;

    const Graph& from_;
    Graph to_;

  private:
    std::map<NodeId, Ref> done_;
    std::map<NodeId, std::vector<NodeId>> users_;
};

}  // namespace dft_real
