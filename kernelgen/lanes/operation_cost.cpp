#include "kernelgen/lanes/operation_cost.hpp"

#include <algorithm>
#include <functional>

namespace kernelgen {
namespace {

constexpr double kOperation = 1;
constexpr double kMove = 1;
/** Any of three units: flips, and blends of lanes that stay where they are. */
constexpr double kFlip = 0.7;
constexpr double kConversion = 2;
/** Of memory there is more than of sums. */
constexpr double kLoad = 0.3;
constexpr double kStore = 0.5;

double cost_of_gather(const Node& n) {
    const auto end = n.selection.begin() + lane_count(n.type);
    const bool all_one = std::adjacent_find(n.selection.begin(), end, std::not_equal_to<>()) == end;
    return all_one ? kLoad : 4 * kLoad + 3 * kFlip;
}

/** Blends apart, any one move is one. */
double cost_of_shuffle(const Node& n) {
    const int lanes = lane_count(n.type);
    for (int i = 0; i < lanes; ++i) {
        if (n.selection[static_cast<std::size_t>(i)] % lanes != i) return kMove;
    }
    return kFlip;
}

double cost_of_part(const Graph& graph, const Node& n) {
    if (n.offset == 0) return 0;
    if (lane_count(n.type) > 1) return kMove;
    return is_wide(graph.node(n.a).type) && n.offset == 3 ? 2 * kMove : kMove;
}

double cost_of(const Graph& graph, const Node& n) {
    switch (n.op) {
        case Op::Load:
        case Op::LoadLow:
        case Op::LoadScalar:
            return kLoad;
        case Op::LoadHigh:
            return kLoad + (is_wide(n.type) ? kFlip : kMove);
        case Op::Gather:
            return cost_of_gather(n);
        case Op::Constant:
        case Op::Scale:
        case Op::Zero:
            return 0;
        case Op::Add:
        case Op::Sub:
        case Op::Mul:
            return kOperation;
        case Op::Flip:
            return kFlip;
        case Op::Shuffle:
            return cost_of_shuffle(n);
        case Op::Spread:
            return is_load(graph.node(n.a).op) ? 0 : kMove;
        case Op::Join:
            return is_load(graph.node(n.b).op) ? kFlip : kMove;
        case Op::Part:
            return cost_of_part(graph, n);
        case Op::Widen:
        case Op::Round:
            return is_placeless(graph.node(n.a).op) ? 0 : kConversion;
        case Op::Store:
        case Op::StoreLow:
        case Op::StoreHigh:
            return kStore;
    }
    return 0;
}

}  // namespace

double operation_cost(const Graph& graph) {
    double sum = 0;
    for (NodeId id : graph.live()) sum += cost_of(graph, graph.node(id));
    return sum;
}

}  // namespace kernelgen
