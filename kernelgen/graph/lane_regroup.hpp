#pragma once

/**
 * @file
 * @brief Makes vectors from lanes of other vectors with few shuffles.
 *
 * All vectors that a stage wants are announced before the first is made, so that a shuffle which
 * serves two of them is found: a 4x4 transpose comes out as eight shuffles.
 */

#include <array>
#include <map>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

/** What a lane of a wanted vector must hold. */
struct Origin {
    enum class Kind : std::uint8_t { Any, Zero, Lane };
    Kind kind = Kind::Any;
    NodeId node = kNone;
    int lane = 0;

    static Origin of(NodeId node, int lane) { return {Kind::Lane, node, lane}; }
    static Origin zero() { return {Kind::Zero, kNone, 0}; }
    auto operator<=>(const Origin&) const = default;
};

using Wanted = std::array<Origin, 4>;

/** Regroups Binary32x4 vectors of one graph. */
class LaneRegroup {
  public:
    explicit LaneRegroup(Graph& graph) : graph_(graph) {}

    void announce(const Wanted& wanted) { announced_.push_back(wanted); }
    /** At least one lane of `wanted` is not Any. */
    Ref make(const Wanted& wanted);

  private:
    struct Vector {
        NodeId node;
        Wanted lanes;
    };
    struct Place {
        std::size_t vector;
        int lane;
    };

    void know(NodeId node, const Wanted& lanes);
    void know_sources(const Wanted& wanted);
    const std::vector<Place>& places(const Origin& origin);
    int lane_in(std::size_t vector, const Origin& origin) const;
    std::ptrdiff_t holding(const Origin& p, const Origin& q);
    std::size_t pair(const Origin& p, const Origin& q);
    std::ptrdiff_t single_step(const Wanted& wanted);
    std::ptrdiff_t fixed_pattern(const Wanted& wanted, const Selection& selection);
    std::size_t join(std::size_t a, std::size_t b, const Selection& selection);
    std::ptrdiff_t existing(const Wanted& wanted);

    Graph& graph_;
    std::vector<Vector> vectors_;
    std::map<NodeId, std::size_t> by_node_;
    std::map<Origin, std::vector<Place>> by_origin_;
    std::vector<Wanted> announced_;
};

}  // namespace kernelgen
