#include "kernelgen/lanes/neighbourhood.hpp"

#include <algorithm>

namespace kernelgen {
namespace {

std::uint64_t mixed(std::uint64_t hash, std::uint64_t value) {
    hash ^= value + 0x9e3779b97f4a7c15U + (hash << 12U) + (hash >> 4U);
    return hash * 0xff51afd7ed558ccdU;
}

std::uint64_t mixed_in_any_order(std::uint64_t hash, std::vector<std::uint64_t> values) {
    std::sort(values.begin(), values.end());
    for (std::uint64_t value : values) hash = mixed(hash, value);
    return mixed(hash, values.size());
}

}  // namespace

Neighbourhood::Neighbourhood(const Graph& graph)
    : graph_(graph),
      live_(graph.live()),
      inputs_(graph.size()),
      users_(graph.size()),
      stores_(graph.size()),
      cones_(graph.size()),
      ancestors_(graph.size()) {
    for (NodeId id : live_) {
        if (computes(id)) computing_.push_back(id);
        for (NodeId operand : operands(graph.node(id))) {
            if (is_given(operand)) continue;
            inputs_[at(id)].push_back(operand);
            if (is_store(graph.node(id).op))
                ++stores_[at(operand)];
            else
                users_[at(operand)].push_back(id);
        }
    }
    colours_.assign(kRounds + 1, std::vector<std::uint64_t>(graph.size()));
    for (NodeId id : live_) {
        colours_[0][at(id)] = kind(id);
        std::vector<std::uint64_t> below;
        for (NodeId input : inputs(id)) below.push_back(cones_[at(input)]);
        cones_[at(id)] = mixed_in_any_order(kind(id), below);
    }
    for (std::size_t round = 1; round < colours_.size(); ++round) {
        for (NodeId id : live_) colours_[round][at(id)] = refined(id, colours_[round - 1]);
    }
    find_ancestors();
}

bool Neighbourhood::computes(NodeId id) const {
    const Op op = graph_.node(id).op;
    return !is_given(id) && !is_store(op) && !is_load(op);
}

bool Neighbourhood::is_given(NodeId id) const {
    const Node& n = graph_.node(id);
    return is_placeless(n.op) || (n.op == Op::Widen && is_placeless(graph_.node(n.a).op));
}

bool Neighbourhood::depends(NodeId user, NodeId operand) const {
    return ancestors_[at(user)][at(operand)];
}

std::uint64_t Neighbourhood::kind(NodeId id) const {
    const Node& n = graph_.node(id);
    const Op op = n.op == Op::Sub ? Op::Add : n.op;
    std::uint64_t hash = mixed(static_cast<std::uint64_t>(op), static_cast<std::uint64_t>(n.type));
    if (op == Op::Shuffle) {
        for (std::uint8_t lane : n.selection) hash = mixed(hash, lane);
        hash = mixed(hash, n.a == n.b ? 1 : 0);
    }
    // A product by a constant is no product by the scale factor.
    for (NodeId operand : operands(n)) {
        const Op other = graph_.node(operand).op;
        if (is_given(operand))
            hash = mixed(hash, static_cast<std::uint64_t>(other == Op::Widen ? Op::Scale : other));
    }
    return hash;
}

std::uint64_t Neighbourhood::refined(NodeId id, const std::vector<std::uint64_t>& colours) const {
    std::vector<std::uint64_t> below;
    for (NodeId input : inputs(id)) below.push_back(colours[at(input)]);
    std::vector<std::uint64_t> above;
    for (NodeId user : users(id)) above.push_back(colours[at(user)]);
    const std::uint64_t hash = mixed(colours[at(id)], static_cast<std::uint64_t>(stores_[at(id)]));
    return mixed_in_any_order(mixed_in_any_order(hash, below), above);
}

void Neighbourhood::find_ancestors() {
    for (NodeId id : live_) {
        std::vector<bool>& all = ancestors_[at(id)];
        all.resize(graph_.size());
        for (NodeId input : inputs(id)) {
            all[at(input)] = true;
            for (std::size_t i = 0; i < ancestors_[at(input)].size(); ++i) {
                if (ancestors_[at(input)][i]) all[i] = true;
            }
        }
    }
}

}  // namespace kernelgen
