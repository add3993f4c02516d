#pragma once

/**
 * @file
 * @brief Packs: like nodes of a graph that are computed side by side, in the lanes of one vector.
 */

#include <map>
#include <optional>
#include <vector>

#include "kernelgen/lanes/neighbourhood.hpp"

namespace kernelgen {

/** Nodes by their lanes. Where there are fewer than lanes, those above repeat the last. */
using Pack = std::vector<NodeId>;

/** How freely packs spread from a seed. */
enum class Spreading {
    Strict,   ///< to users whose other operands are in packs, too, or loaded
    Forward,  ///< to users whose other operands are of like cones as well
};

class Packs {
  public:
    explicit Packs(const Neighbourhood& nodes) : nodes_(&nodes), places_(nodes.graph().size()) {}

    /** Of a node in a pack: which, and its lane. */
    struct Place {
        int pack = -1;
        int lane = 0;
    };
    const Place& place(NodeId id) const { return places_[static_cast<std::size_t>(id)]; }
    bool holds(NodeId id) const { return place(id).pack >= 0; }
    const std::vector<Pack>& all() const { return packs_; }
    const Neighbourhood& nodes() const { return *nodes_; }

    /** Whether these nodes may be a pack besides those that are: like ones, each once, that do not
     * depend on each other. */
    bool fit(const Pack& pack) const;

    /** Adds a pack and all that follow from it: those of its operands, and those of its users as
     * far as `spreading` goes. Returns how many there are; none where the seed does not fit. */
    int grow(const Pack& seed, Spreading spreading);

    /** The operands of a pack that are not given, by lanes, none, one or two vectors. Operands of
     * sums come in the order that suits the packs. */
    std::vector<Pack> inputs(const Pack& pack) const;

    /** Whether no pack depends on itself by way of other nodes. */
    bool can_be_ordered() const;

  private:
    void add(const Pack& pack);
    int suits(NodeId a, NodeId b) const;
    std::optional<Pack> pack_of_users(const Pack& pack, NodeId user, Spreading spreading) const;
    double user_suits(const Pack& pack, std::size_t lane, NodeId first, NodeId user,
                      Spreading spreading) const;

    const Neighbourhood* nodes_;
    std::vector<Pack> packs_;
    std::vector<Place> places_;
};

}  // namespace kernelgen
