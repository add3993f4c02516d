#include "kernelgen/schedule.hpp"

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "kernelgen/register_model.hpp"

namespace kernelgen {
namespace {

bool is_load(Op op) {
    return op == Op::Load || op == Op::LoadLow || op == Op::LoadHigh || op == Op::LoadScalar;
}

/** Nodes that need no place of their own: constants stand where they are used. */
bool is_placeless(Op op) { return op == Op::Constant || op == Op::Scale || op == Op::Zero; }

class Bisection {
  public:
    Bisection(const Graph& graph, const BisectionVariant& variant)
        : graph_(graph), variant_(variant), random_(variant.shuffle), users_(graph.size()) {
        for (NodeId id : graph.live()) {
            if (!counts(id)) continue;
            for (NodeId operand : operands(graph.node(id))) {
                if (counts(operand)) users_[index(operand)].push_back(id);
            }
        }
    }

    Order run() {
        std::vector<NodeId> all;
        for (NodeId id : graph_.live()) {
            if (counts(id)) all.push_back(id);
        }
        place(all);
        return std::move(order_);
    }

  private:
    static std::size_t index(NodeId id) { return static_cast<std::size_t>(id); }

    bool counts(NodeId id) const {
        const Op op = graph_.node(id).op;
        return !is_load(op) && !is_placeless(op);
    }

    void place(const std::vector<NodeId>& part) {
        if (part.size() <= static_cast<std::size_t>(variant_.leaf)) {
            order_.insert(order_.end(), part.begin(), part.end());
            return;
        }
        auto components = split_into_components(part);
        if (components.size() > 1) {
            if (variant_.shuffle != 0) mix(components);
            for (const auto& component : components) place(component);
            return;
        }
        const auto [front, back] = bisect(part);
        if (front.empty() || back.empty()) {
            order_.insert(order_.end(), part.begin(), part.end());
            return;
        }
        place(front);
        place(back);
    }

    // Not std::shuffle, whose result the standard leaves open: the same seed must give the same
    // kernel with every library.
    void mix(std::vector<std::vector<NodeId>>& components) {
        for (std::size_t i = components.size(); i > 1; --i)
            std::swap(components[i - 1], components[random_() % i]);
    }

    std::vector<std::vector<NodeId>> split_into_components(const std::vector<NodeId>& part) {
        const std::set<NodeId> inside(part.begin(), part.end());
        std::set<NodeId> seen;
        std::vector<std::vector<NodeId>> components;
        for (NodeId first : part) {
            if (seen.contains(first)) continue;
            std::vector<NodeId> component;
            std::vector<NodeId> open{first};
            seen.insert(first);
            while (!open.empty()) {
                const NodeId id = open.back();
                open.pop_back();
                component.push_back(id);
                const auto visit = [&](NodeId next) {
                    if (inside.contains(next) && seen.insert(next).second) open.push_back(next);
                };
                for (NodeId operand : operands(graph_.node(id))) visit(operand);
                for (NodeId user : users_[index(id)]) visit(user);
            }
            std::sort(component.begin(), component.end());
            components.push_back(component);
        }
        return components;
    }

    std::pair<std::vector<NodeId>, std::vector<NodeId>> bisect(const std::vector<NodeId>& part) {
        enum class Colour { None, Front, Back };
        std::map<NodeId, Colour> colour;
        for (NodeId id : part) colour[id] = Colour::None;
        // A node joins a side once all its neighbours towards that side have.
        const auto ready = [&](NodeId id, Colour side) {
            const auto joined = [&](NodeId next) {
                const auto found = colour.find(next);
                return found == colour.end() || found->second == side;
            };
            if (side == Colour::Front) {
                const auto before = operands(graph_.node(id));
                return std::all_of(before.begin(), before.end(), joined);
            }
            return std::all_of(users_[index(id)].begin(), users_[index(id)].end(), joined);
        };
        std::vector<NodeId> left = part;
        Colour side = variant_.outputs_first ? Colour::Back : Colour::Front;
        while (!left.empty()) {
            std::vector<NodeId> taken;
            std::vector<NodeId> rest;
            for (NodeId id : left) (ready(id, side) ? taken : rest).push_back(id);
            for (NodeId id : taken) colour[id] = side;
            left = std::move(rest);
            side = side == Colour::Front ? Colour::Back : Colour::Front;
        }
        std::vector<NodeId> front;
        std::vector<NodeId> back;
        for (NodeId id : part) (colour[id] == Colour::Front ? front : back).push_back(id);
        return {front, back};
    }

    const Graph& graph_;
    const BisectionVariant variant_;
    std::mt19937 random_;
    std::vector<std::vector<NodeId>> users_;
    Order order_;
};

// Puts each load just before the first node that uses it.
Order with_lazy_loads(const Graph& graph, const Order& order) {
    Order result;
    std::set<NodeId> placed;
    const auto place = [&](auto&& self, NodeId id) -> void {
        if (is_placeless(graph.node(id).op) || !placed.insert(id).second) return;
        for (NodeId operand : operands(graph.node(id))) {
            if (is_load(graph.node(operand).op)) self(self, operand);
        }
        result.push_back(id);
    };
    for (NodeId id : order) place(place, id);
    return result;
}

}  // namespace

std::string BisectionVariant::to_string() const {
    return std::string("bisection ") + (outputs_first ? "o" : "i") + std::to_string(leaf) + "x" +
           std::to_string(shuffle);
}

Order bisection_order(const Graph& graph, const BisectionVariant& variant) {
    return with_lazy_loads(graph, Bisection(graph, variant).run());
}

Order depth_first_order(const Graph& graph) {
    Order order;
    std::set<NodeId> placed;
    const auto place = [&](auto&& self, NodeId id) -> void {
        if (is_placeless(graph.node(id).op) || !placed.insert(id).second) return;
        for (NodeId operand : operands(graph.node(id))) self(self, operand);
        order.push_back(id);
    };
    for (NodeId store : graph.stores()) place(place, store);
    return order;
}

Order source_order(const Graph& graph) {
    Order order;
    for (NodeId id : graph.live()) {
        const Op op = graph.node(id).op;
        if (!is_load(op) && !is_placeless(op)) order.push_back(id);
    }
    return with_lazy_loads(graph, order);
}

Schedule schedule(const Graph& graph, const Target& target) {
    Schedule best;
    const std::pair<const char*, Order> candidates[] = {
        {"bisection", bisection_order(graph)},
        {"depth first", depth_first_order(graph)},
        {"source", source_order(graph)},
    };
    for (const auto& [method, order] : candidates) {
        const int spills = stack_accesses(graph, order, target.vector_registers);
        if (best.order.empty() || spills < best.spills) best = {method, order, spills};
    }
    return best;
}

}  // namespace kernelgen
