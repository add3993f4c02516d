#include "kernelgen/graph/lane_regroup.hpp"

#include <algorithm>

namespace kernelgen {
namespace {

bool serves(const Origin& held, const Origin& wanted) {
    return wanted.kind == Origin::Kind::Any || held == wanted;
}

bool is_any(const Origin& origin) {
    return origin.kind == Origin::Kind::Any;
}

// Patterns of one instruction whose lanes are fixed. The two that move lanes without crossing
// (blends of scalar moves) come first: they do not load the shuffle port.
constexpr Selection kFixedPatterns[] = {
    {4, 1, 2, 3},  // low lane of the second operand
    {4, 5, 2, 3},  // low half of the second operand
    {0, 4, 1, 5},  // unpack low
    {2, 6, 3, 7},  // unpack high
};

}  // namespace

void LaneRegroup::know(NodeId node, const Wanted& lanes) {
    if (by_node_.contains(node)) return;
    const std::size_t index = vectors_.size();
    by_node_[node] = index;
    vectors_.push_back({node, lanes});
    for (int lane = 0; lane < 4; ++lane) {
        const Origin& origin = lanes[static_cast<std::size_t>(lane)];
        if (!is_any(origin)) by_origin_[origin].push_back({index, lane});
    }
}

void LaneRegroup::know_sources(const Wanted& wanted) {
    for (const Origin& origin : wanted) {
        if (origin.kind == Origin::Kind::Lane) {
            know(origin.node, {Origin::of(origin.node, 0), Origin::of(origin.node, 1),
                               Origin::of(origin.node, 2), Origin::of(origin.node, 3)});
        } else if (origin.kind == Origin::Kind::Zero) {
            know(graph_.zero(Type::Binary32x4).id,
                 {Origin::zero(), Origin::zero(), Origin::zero(), Origin::zero()});
        }
    }
}

const std::vector<LaneRegroup::Place>& LaneRegroup::places(const Origin& origin) {
    return by_origin_[origin];
}

int LaneRegroup::lane_in(std::size_t vector, const Origin& origin) const {
    if (is_any(origin)) return 0;
    const Wanted& lanes = vectors_[vector].lanes;
    for (int lane = 0; lane < 4; ++lane) {
        if (lanes[static_cast<std::size_t>(lane)] == origin) return lane;
    }
    return -1;
}

std::ptrdiff_t LaneRegroup::holding(const Origin& p, const Origin& q) {
    if (is_any(p) && is_any(q)) return vectors_.empty() ? -1 : 0;
    for (const Place& place : places(is_any(p) ? q : p)) {
        if (lane_in(place.vector, p) >= 0 && lane_in(place.vector, q) >= 0)
            return static_cast<std::ptrdiff_t>(place.vector);
    }
    return -1;
}

std::size_t LaneRegroup::join(std::size_t a, std::size_t b, const Selection& selection) {
    Wanted lanes;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t from = selection[i];
        lanes[i] = from < 4 ? vectors_[a].lanes[from] : vectors_[b].lanes[from - 4];
    }
    const Ref made = graph_.shuffle({vectors_[a].node}, {vectors_[b].node}, selection);
    know(made.id, lanes);
    return by_node_.at(made.id);
}

// A vector with p and q somewhere. Its two spare lanes go to another announced pair that lives in
// the same two vectors, if there is one.
std::size_t LaneRegroup::pair(const Origin& p, const Origin& q) {
    const Place from_p = places(p).front();
    const Place from_q = places(q).front();
    int spare_p = from_p.lane ^ 1;
    int spare_q = from_q.lane ^ 1;
    for (const Wanted& wanted : announced_) {
        for (std::size_t i = 0; i < 4; i += 2) {
            const Origin& r = wanted[i];
            const Origin& s = wanted[i + 1];
            if (is_any(r) || is_any(s) || (r == p && s == q) || holding(r, s) >= 0) continue;
            const int lane_r = lane_in(from_p.vector, r);
            const int lane_s = lane_in(from_q.vector, s);
            if (lane_r >= 0 && lane_s >= 0) {
                spare_p = lane_r;
                spare_q = lane_s;
            }
        }
    }
    return join(
        from_p.vector, from_q.vector,
        {static_cast<std::uint8_t>(from_p.lane), static_cast<std::uint8_t>(spare_p),
         static_cast<std::uint8_t>(4 + from_q.lane), static_cast<std::uint8_t>(4 + spare_q)});
}

std::ptrdiff_t LaneRegroup::existing(const Wanted& wanted) {
    const auto named =
        std::find_if(wanted.begin(), wanted.end(), [](const Origin& o) { return !is_any(o); });
    if (named == wanted.end()) return -1;
    for (const Place& place : places(*named)) {
        const Wanted& lanes = vectors_[place.vector].lanes;
        if (std::equal(lanes.begin(), lanes.end(), wanted.begin(), serves))
            return static_cast<std::ptrdiff_t>(place.vector);
    }
    return -1;
}

std::ptrdiff_t LaneRegroup::fixed_pattern(const Wanted& wanted, const Selection& selection) {
    const auto fits = [&](std::size_t vector, bool second) {
        for (std::size_t i = 0; i < 4; ++i) {
            const std::size_t from = selection[i];
            if ((from >= 4) != second) continue;
            if (!serves(vectors_[vector].lanes[from & 3], wanted[i])) return false;
        }
        return true;
    };
    const auto find = [&](bool second) -> std::ptrdiff_t {
        for (std::size_t i = 0; i < 4; ++i) {
            if ((selection[i] >= 4) != second || is_any(wanted[i])) continue;
            for (const Place& place : places(wanted[i])) {
                if (fits(place.vector, second)) return static_cast<std::ptrdiff_t>(place.vector);
            }
            return -1;
        }
        return -1;
    };
    const std::ptrdiff_t a = find(false);
    if (a < 0) return -1;
    const std::ptrdiff_t b = find(true);
    if (b < 0) return -1;
    return static_cast<std::ptrdiff_t>(
        join(static_cast<std::size_t>(a), static_cast<std::size_t>(b), selection));
}

std::ptrdiff_t LaneRegroup::single_step(const Wanted& wanted) {
    for (const Selection& pattern : kFixedPatterns) {
        const std::ptrdiff_t made = fixed_pattern(wanted, pattern);
        if (made >= 0) return made;
    }
    std::ptrdiff_t low = holding(wanted[0], wanted[1]);
    std::ptrdiff_t high = holding(wanted[2], wanted[3]);
    if (is_any(wanted[0]) && is_any(wanted[1])) low = high;
    if (is_any(wanted[2]) && is_any(wanted[3])) high = low;
    if (low < 0 || high < 0) return -1;
    const auto a = static_cast<std::size_t>(low);
    const auto b = static_cast<std::size_t>(high);
    return static_cast<std::ptrdiff_t>(
        join(a, b,
             {static_cast<std::uint8_t>(lane_in(a, wanted[0])),
              static_cast<std::uint8_t>(lane_in(a, wanted[1])),
              static_cast<std::uint8_t>(4 + lane_in(b, wanted[2])),
              static_cast<std::uint8_t>(4 + lane_in(b, wanted[3]))}));
}

Ref LaneRegroup::make(const Wanted& wanted) {
    know_sources(wanted);
    for (const Wanted& other : announced_) know_sources(other);
    std::ptrdiff_t made = existing(wanted);
    if (made < 0) made = single_step(wanted);
    if (made < 0) {
        for (std::size_t i = 0; i < 4; i += 2) {
            if (holding(wanted[i], wanted[i + 1]) < 0) pair(wanted[i], wanted[i + 1]);
        }
        made = single_step(wanted);
    }
    return {vectors_[static_cast<std::size_t>(made)].node};
}

}  // namespace kernelgen
