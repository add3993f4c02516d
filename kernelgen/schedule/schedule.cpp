#include "kernelgen/schedule/schedule.hpp"

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

namespace kernelgen {
namespace {

class Bisection {
  public:
    Bisection(const Graph& graph, const BisectionVariant& variant)
        : graph_(graph),
          variant_(variant),
          random_(variant.shuffle),
          users_(graph.size()),
          mark_(graph.size(), Mark::None) {
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
    enum class Mark : std::uint8_t { None, Part, Front, Back };

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
        for (NodeId id : part) mark_[index(id)] = Mark::Part;
        std::vector<std::vector<NodeId>> components;
        for (NodeId first : part) {
            if (mark_[index(first)] != Mark::Part) continue;
            std::vector<NodeId> component;
            std::vector<NodeId> open{first};
            mark_[index(first)] = Mark::None;
            while (!open.empty()) {
                const NodeId id = open.back();
                open.pop_back();
                component.push_back(id);
                const auto visit = [&](NodeId next) {
                    if (mark_[index(next)] != Mark::Part) return;
                    mark_[index(next)] = Mark::None;
                    open.push_back(next);
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
        for (NodeId id : part) mark_[index(id)] = Mark::Part;
        // A node joins a side once all its neighbours in the part towards that side have.
        const auto ready = [&](NodeId id, Mark side) {
            const auto joined = [&](NodeId next) {
                return mark_[index(next)] == Mark::None || mark_[index(next)] == side;
            };
            if (side == Mark::Front) {
                const Node& node = graph_.node(id);
                return (node.a == kNone || joined(node.a)) && (node.b == kNone || joined(node.b));
            }
            return std::all_of(users_[index(id)].begin(), users_[index(id)].end(), joined);
        };
        std::vector<NodeId> left = part;
        Mark side = variant_.outputs_first ? Mark::Back : Mark::Front;
        while (!left.empty()) {
            std::vector<NodeId> taken;
            std::vector<NodeId> rest;
            for (NodeId id : left) (ready(id, side) ? taken : rest).push_back(id);
            for (NodeId id : taken) mark_[index(id)] = side;
            left = std::move(rest);
            side = side == Mark::Front ? Mark::Back : Mark::Front;
        }
        std::vector<NodeId> front;
        std::vector<NodeId> back;
        for (NodeId id : part) (mark_[index(id)] == Mark::Front ? front : back).push_back(id);
        for (NodeId id : part) mark_[index(id)] = Mark::None;
        return {front, back};
    }

    const Graph& graph_;
    const BisectionVariant variant_;
    std::mt19937 random_;
    std::vector<std::vector<NodeId>> users_;
    std::vector<Mark> mark_;  ///< of the part at work; None elsewhere
    Order order_;
};

// Puts each load just before the first node that uses it, but before any store to its elements
// where source and destination may be one array.
Order with_lazy_loads(const Graph& graph, const Order& order) {
    Order result;
    std::vector<bool> placed(graph.size(), false);
    std::vector<NodeId> loads;
    for (NodeId id : graph.live()) {
        if (is_load(graph.node(id).op)) loads.push_back(id);
    }
    const auto place = [&](auto&& self, NodeId id) -> void {
        const Node& node = graph.node(id);
        if (is_placeless(node.op) || placed[static_cast<std::size_t>(id)]) return;
        placed[static_cast<std::size_t>(id)] = true;
        for (NodeId operand : operands(node)) {
            if (is_load(graph.node(operand).op)) self(self, operand);
        }
        if (is_store(node.op) && !graph.arrays_are_apart()) {
            for (NodeId load : loads) {
                if (shares_elements(graph.node(load), node)) self(self, load);
            }
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
    std::vector<bool> placed(graph.size(), false);
    const auto place = [&](auto&& self, NodeId id) -> void {
        const Op op = graph.node(id).op;
        if (is_load(op) || is_placeless(op) || placed[static_cast<std::size_t>(id)]) return;
        placed[static_cast<std::size_t>(id)] = true;
        for (NodeId operand : operands(graph.node(id))) self(self, operand);
        order.push_back(id);
    };
    for (NodeId store : graph.stores()) place(place, store);
    return with_lazy_loads(graph, order);
}

Order source_order(const Graph& graph) {
    Order order;
    for (NodeId id : graph.live()) {
        const Op op = graph.node(id).op;
        if (!is_load(op) && !is_placeless(op)) order.push_back(id);
    }
    return with_lazy_loads(graph, order);
}

Schedule schedule_by(const std::string& method, const Graph& graph, const Target& target) {
    Schedule result{.method = method, .order = {}, .traffic = {}};
    BisectionVariant variant;
    char side = 0;
    if (method == "depth first") {
        result.order = depth_first_order(graph);
    } else if (method == "source") {
        result.order = source_order(graph);
    } else if (std::sscanf(method.c_str(), "bisection %c%dx%u", &side, &variant.leaf,
                           &variant.shuffle) == 3) {
        variant.outputs_first = side == 'o';
        result.order = bisection_order(graph, variant);
    } else {
        throw std::invalid_argument("no order is called " + method);
    }
    result.traffic = register_traffic(graph, result.order, target);
    return result;
}

Schedule schedule(const Graph& graph, const Target& target) {
    Schedule best;
    for (const std::string& method :
         {BisectionVariant{}.to_string(), std::string("depth first"), std::string("source")}) {
        const Schedule next = schedule_by(method, graph, target);
        if (best.order.empty() || next.traffic.total() < best.traffic.total()) best = next;
    }
    return best;
}

std::vector<Schedule> search_schedules(const Graph& graph, const Target& target, int seeds) {
    std::vector<Schedule> found;
    std::set<Order> known;
    const auto consider = [&](const std::string& method) {
        Schedule next = schedule_by(method, graph, target);
        if (known.insert(next.order).second) found.push_back(std::move(next));
    };
    consider("depth first");
    consider("source");
    for (bool outputs_first : {false, true}) {
        for (int leaf : {2, 4, 8, 12, 16, 24, 32, 48}) {
            for (int seed = 0; seed < seeds; ++seed) {
                consider(BisectionVariant{outputs_first, leaf, static_cast<std::uint32_t>(seed)}
                             .to_string());
            }
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Schedule& a, const Schedule& b) {
        return a.traffic.total() < b.traffic.total();
    });
    return found;
}

}  // namespace kernelgen
