#include "kernelgen/lanes/lane_moves.hpp"

#include <optional>
#include <utility>

namespace kernelgen {
namespace {

using Lanes4 = std::array<int, 4>;

bool is_single(const Graph& graph, Ref vector) {
    return is_binary32(graph.node(vector.id).type);
}

/** Lanes of the first vector, then, from 4 on, of the second. */
Ref picked(Graph& graph, Ref a, Ref b, const Lanes4& lanes) {
    Selection selection{};
    for (std::size_t i = 0; i < 4; ++i)
        selection[i] = static_cast<std::uint8_t>(a == b ? lanes[i] % 4 : lanes[i]);
    return graph.shuffle(a, b, selection);
}

/** Where a lane is picked within its half. */
int within_half(const LaneOrigin& origin) {
    return origin.lane % 2;
}
int start_of_half(const LaneOrigin& origin) {
    return origin.lane / 2 * 2;
}

bool is_one_move(const Lanes4& lanes, bool single) {
    const auto lane = [&](int i) { return lanes[static_cast<std::size_t>(i)]; };
    bool is_blend = true;
    for (int i = 0; i < 4; ++i) is_blend = is_blend && lane(i) % 4 == i;
    if (is_blend) return true;
    if (single) {
        const bool interleaves = lanes == Lanes4{0, 4, 1, 5} || lanes == Lanes4{2, 6, 3, 7};
        return interleaves || (lane(0) < 4 && lane(1) < 4 && lane(2) >= 4 && lane(3) >= 4);
    }
    // Within halves, a lane of each operand in turn; or whole halves.
    const bool in_turn =
        lane(0) / 2 == 0 && lane(1) / 2 == 2 && lane(2) / 2 == 1 && lane(3) / 2 == 3;
    const bool halves =
        lane(0) % 2 == 0 && lane(1) == lane(0) + 1 && lane(2) % 2 == 0 && lane(3) == lane(2) + 1;
    return in_turn || halves;
}

/** Where that is so: lanes out of two vectors that one instruction picks. */
std::optional<Ref> by_one_move(Graph& graph, const std::array<LaneOrigin, 4>& wanted) {
    Ref first = wanted[0].vector;
    Ref second = first;
    for (const LaneOrigin& origin : wanted) {
        if (origin.vector == first) continue;
        if (second != first && origin.vector != second) return {};
        second = origin.vector;
    }
    for (int swaps = 0; swaps < 2; ++swaps) {
        Lanes4 lanes{};
        for (std::size_t i = 0; i < 4; ++i)
            lanes[i] = wanted[i].lane + (wanted[i].vector == first ? 0 : 4);
        if (first == second || is_one_move(lanes, is_single(graph, first)))
            return picked(graph, first, second, lanes);
        std::swap(first, second);
    }
    return {};
}

/** A vector that holds two values, and in which lanes. */
struct Two {
    Ref vector;
    int first;
    int second;
};

/** Of singles in any lanes, of doubles in one half. */
Two two(Graph& graph, const LaneOrigin& first, const LaneOrigin& second) {
    if (is_single(graph, first.vector)) {
        if (first.vector == second.vector) return {first.vector, first.lane, second.lane};
        if (first.lane != second.lane)
            return {picked(graph, first.vector, second.vector,
                           {first.lane, first.lane, 4 + second.lane, 4 + second.lane}),
                    0, 2};
    }
    const LaneOrigin both = in_one_half(graph, first, second);
    return {both.vector, both.lane, both.lane + 1};
}

/** Lanes 0 and 1, lanes 2 and 3, and then both. */
Ref by_pairs(Graph& graph, const std::array<LaneOrigin, 4>& wanted) {
    const Two low = two(graph, wanted[0], wanted[1]);
    const Two high = two(graph, wanted[2], wanted[3]);
    return picked(graph, low.vector, high.vector,
                  {low.first, low.second, 4 + high.first, 4 + high.second});
}

/** Of doubles, the halves that hold lanes 0 and 2, those of lanes 1 and 3, and then a lane of each
 * in turn. */
Ref by_halves(Graph& graph, const std::array<LaneOrigin, 4>& wanted) {
    const auto halves_of = [&](const LaneOrigin& low, const LaneOrigin& high) {
        const int first = start_of_half(low);
        const int second = start_of_half(high);
        return picked(graph, low.vector, high.vector, {first, first + 1, 4 + second, 5 + second});
    };
    const Ref even = halves_of(wanted[0], wanted[2]);
    const Ref odd = halves_of(wanted[1], wanted[3]);
    return picked(graph, even, odd,
                  {within_half(wanted[0]), 4 + within_half(wanted[1]), 2 + within_half(wanted[2]),
                   6 + within_half(wanted[3])});
}

}  // namespace

Ref four_lanes(Graph& graph, const std::array<LaneOrigin, 4>& wanted) {
    if (const auto one = by_one_move(graph, wanted)) return *one;
    if (is_single(graph, wanted[0].vector)) return by_pairs(graph, wanted);
    const Graph::Mark mark = graph.mark();
    by_halves(graph, wanted);
    const std::size_t moves = graph.size() - mark.nodes;
    graph.return_to(mark);
    const Ref result = by_pairs(graph, wanted);
    if (graph.size() - mark.nodes <= moves) return result;
    graph.return_to(mark);
    return by_halves(graph, wanted);
}

LaneOrigin in_one_half(Graph& graph, const LaneOrigin& first, const LaneOrigin& second) {
    const Ref a = first.vector;
    const Ref b = second.vector;
    const int half = start_of_half(first);
    if (a == b && second.lane == first.lane + 1 && first.lane == half) return first;
    if (!is_single(graph, a)) {
        // Of both halves at once, where others may want the same of the other one.
        const bool is_apart = half != start_of_half(second);
        const Ref beside = is_apart ? picked(graph, b, b, {2, 3, 0, 1}) : b;
        return {picked(graph, a, beside,
                       {within_half(first), 4 + within_half(second), 2 + within_half(first),
                        6 + within_half(second)}),
                half};
    }
    if (a != b && first.lane == second.lane)
        return {picked(graph, a, b, {half, 4 + half, half + 1, 5 + half}), within_half(first) * 2};
    const Two apart = two(graph, first, second);
    return {picked(graph, apart.vector, apart.vector,
                   {apart.first, apart.second, apart.first, apart.second}),
            0};
}

}  // namespace kernelgen
