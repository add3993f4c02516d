#include "kernelgen/lanes/packs.hpp"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

namespace kernelgen {
namespace {

/** Whether `id` enters `user` with a minus. */
bool is_subtracted(const Graph& graph, NodeId user, NodeId id) {
    const Node& n = graph.node(user);
    return n.op == Op::Sub && n.b == id;
}

bool is_sum(const Graph& graph, NodeId id) {
    const Op op = graph.node(id).op;
    return op == Op::Add || op == Op::Sub;
}

/** Of two operands the other one than `id`; `id` where there is none. */
NodeId other_input(const Neighbourhood& nodes, NodeId user, NodeId id) {
    const std::vector<NodeId>& inputs = nodes.inputs(user);
    for (NodeId input : inputs) {
        if (input != id) return input;
    }
    return id;
}

}  // namespace

bool Packs::fit(const Pack& pack) const {
    for (std::size_t i = 0; i < pack.size(); ++i) {
        if (!nodes_->computes(pack[i]) || holds(pack[i]) || !nodes_->are_alike(pack[0], pack[i]))
            return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (pack[i] == pack[j] || nodes_->depends(pack[i], pack[j]) ||
                nodes_->depends(pack[j], pack[i]))
                return false;
        }
    }
    return pack.size() > 1;
}

int Packs::grow(const Pack& seed, Spreading spreading) {
    if (!fit(seed)) return 0;
    const std::size_t before = packs_.size();
    std::vector<Pack> open{seed};
    add(seed);
    while (!open.empty()) {
        const Pack pack = open.back();
        open.pop_back();
        const auto add_and_go_on = [&](const Pack& next) {
            add(next);
            open.push_back(next);
        };
        for (const Pack& operands : inputs(pack)) {
            if (fit(operands)) add_and_go_on(operands);
        }
        for (NodeId user : nodes_->users(pack.front())) {
            if (holds(user)) continue;
            if (const auto users = pack_of_users(pack, user, spreading)) add_and_go_on(*users);
        }
    }
    return static_cast<int>(packs_.size() - before);
}

void Packs::add(const Pack& pack) {
    for (std::size_t lane = 0; lane < pack.size(); ++lane)
        places_[static_cast<std::size_t>(pack[lane])] = {static_cast<int>(packs_.size()),
                                                         static_cast<int>(lane)};
    packs_.push_back(pack);
}

/** How well two operands stand in lanes of one vector. */
int Packs::suits(NodeId a, NodeId b) const {
    if (a == b) return 3;
    int score = nodes_->are_alike(a, b) ? 1 : 0;
    for (int rounds : {3, Neighbourhood::kRounds})
        score += nodes_->colour(a, rounds) == nodes_->colour(b, rounds) ? 1 : 0;
    if (nodes_->colour_of_cone(a) == nodes_->colour_of_cone(b)) score += 2;
    if (holds(a) && holds(b)) return score + (place(a).pack == place(b).pack ? 8 : -2);
    return holds(a) != holds(b) ? score - 2 : score;
}

std::vector<Pack> Packs::inputs(const Pack& pack) const {
    const Graph& graph = nodes_->graph();
    const std::vector<NodeId>& first = nodes_->inputs(pack.front());
    std::vector<Pack> result(first.size());
    for (NodeId node : pack) {
        std::vector<NodeId> next = nodes_->inputs(node);
        if (node != pack.front() && next.size() == 2 && is_sum(graph, node)) {
            int straight = 2 * (suits(first[0], next[0]) + suits(first[1], next[1]));
            int crossed = 2 * (suits(first[0], next[1]) + suits(first[1], next[0]));
            const bool same_signs = graph.node(node).op == graph.node(pack.front()).op;
            // Of a difference, the order tells the signs apart, which cost a flip where they
            // differ.
            if (same_signs && graph.node(node).op == Op::Sub) ++straight;
            if (straight == crossed && is_load(graph.node(next[0]).op) &&
                is_load(graph.node(next[1]).op) && is_load(graph.node(first[0]).op)) {
                const auto distance = [&](NodeId a, NodeId b) {
                    return graph.node(a).offset - graph.node(b).offset;
                };
                if (std::abs(distance(next[1], first[0]) - distance(next[0], first[1])) <
                    std::abs(distance(next[0], first[0]) - distance(next[1], first[1])))
                    ++crossed;
            }
            if (crossed > straight) std::swap(next[0], next[1]);
        }
        for (std::size_t i = 0; i < result.size(); ++i) result[i].push_back(next[i]);
    }
    return result;
}

/** The pack that `user` of the first lane heads, if the other lanes have users like it. */
std::optional<Pack> Packs::pack_of_users(const Pack& pack, NodeId user, Spreading spreading) const {
    Pack result{user};
    for (std::size_t lane = 1; lane < pack.size(); ++lane) {
        NodeId best = kNone;
        double most = 0;
        for (NodeId candidate : nodes_->users(pack[lane])) {
            if (holds(candidate) || !nodes_->are_alike(user, candidate) ||
                std::find(result.begin(), result.end(), candidate) != result.end())
                continue;
            const double score = user_suits(pack, lane, user, candidate, spreading);
            if (score > most) {
                most = score;
                best = candidate;
            }
        }
        if (best == kNone) return {};
        result.push_back(best);
    }
    if (!fit(result)) return {};
    return result;
}

double Packs::user_suits(const Pack& pack, std::size_t lane, NodeId first, NodeId user,
                         Spreading spreading) const {
    const Graph& graph = nodes_->graph();
    const bool same_colour = nodes_->colour(first, 3) == nodes_->colour(user, 3);
    const bool same_surroundings = nodes_->colour(first, Neighbourhood::kRounds) ==
                                   nodes_->colour(user, Neighbourhood::kRounds);
    const double likeness = (same_colour ? 1 : 0) + (same_surroundings ? 0.25 : 0);
    if (nodes_->inputs(first).size() == 1) return 1 + likeness;
    // Lanes of a shuffle are picked from the first operand or from the second.
    if (!is_sum(graph, first) &&
        (nodes_->inputs(first)[0] == pack[0]) != (nodes_->inputs(user)[0] == pack[lane]))
        return 0;
    const bool same_sign =
        is_subtracted(graph, first, pack[0]) == is_subtracted(graph, user, pack[lane]);
    const NodeId a = other_input(*nodes_, first, pack[0]);
    const NodeId b = other_input(*nodes_, user, pack[lane]);
    const bool same_op = graph.node(first).op == graph.node(user).op;
    const double signs = (same_sign ? 0.5 : 0) + (same_op ? 1 : 0);
    if (holds(a) && holds(b)) {
        const bool in_lanes = place(a).pack == place(b).pack && place(a).lane == 0 &&
                              place(b).lane == static_cast<int>(lane);
        return in_lanes ? 10 + signs : 0;
    }
    if (is_load(graph.node(a).op) && is_load(graph.node(b).op)) return 3 + likeness + signs;
    const bool like_cones = nodes_->colour_of_cone(a) == nodes_->colour_of_cone(b) && a != b;
    if (spreading == Spreading::Forward && !holds(a) && !holds(b) && like_cones)
        return 1 + likeness + signs;
    return 0;
}

bool Packs::can_be_ordered() const {
    const Graph& graph = nodes_->graph();
    // A pack is one node behind those of the graph.
    const auto place_of = [&](NodeId id) {
        return holds(id) ? graph.size() + static_cast<std::size_t>(place(id).pack)
                         : static_cast<std::size_t>(id);
    };
    std::vector<std::set<std::size_t>> users(graph.size() + packs_.size());
    std::vector<int> waits_for(users.size());
    std::set<std::size_t> all;
    for (NodeId id : nodes_->live()) {
        const std::size_t user = place_of(id);
        all.insert(user);
        for (NodeId input : nodes_->inputs(id)) {
            if (users[place_of(input)].insert(user).second) ++waits_for[user];
        }
    }
    std::vector<std::size_t> ready;
    for (std::size_t node : all) {
        if (waits_for[node] == 0) ready.push_back(node);
    }
    std::size_t ordered = 0;
    while (!ready.empty()) {
        const std::size_t node = ready.back();
        ready.pop_back();
        ++ordered;
        for (std::size_t user : users[node]) {
            if (--waits_for[user] == 0) ready.push_back(user);
        }
    }
    return ordered == all.size();
}

}  // namespace kernelgen
