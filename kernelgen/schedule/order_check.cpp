#include "kernelgen/schedule/order_check.hpp"

#include <set>
#include <stdexcept>

namespace kernelgen {
namespace {

std::string in_words(const Graph& graph, NodeId id) {
    const Node& node = graph.node(id);
    std::string name = "node " + std::to_string(id);
    if (!is_load(node.op) && !is_store(node.op)) return name;
    const Elements elements = touched(node);
    return name + (is_load(node.op) ? ", a load" : ", a store") + " of elements " +
           std::to_string(elements.first) + " to " + std::to_string(elements.past - 1) + ",";
}

}  // namespace

void check_order(const Graph& graph, const Order& order) {
    std::set<NodeId> placed;
    std::vector<NodeId> stores;
    for (NodeId id : order) {
        const Node& node = graph.node(id);
        if (!placed.insert(id).second)
            throw std::logic_error(in_words(graph, id) + " stands twice in its order");
        for (NodeId operand : operands(node)) {
            if (!is_placeless(graph.node(operand).op) && !placed.contains(operand))
                throw std::logic_error(in_words(graph, id) + " stands before its operand, " +
                                       in_words(graph, operand));
        }
        if (!is_load(node.op) && !is_store(node.op)) continue;
        for (NodeId store : stores) {
            const bool both_stores = is_store(node.op);
            if (!both_stores && graph.arrays_are_apart()) continue;
            if (shares_elements(node, graph.node(store)))
                throw std::logic_error(in_words(graph, id) + " stands behind " +
                                       in_words(graph, store) + " which overwrites its elements");
        }
        if (is_store(node.op)) stores.push_back(id);
    }
    for (NodeId id : graph.live()) {
        if (!is_placeless(graph.node(id).op) && !placed.contains(id))
            throw std::logic_error(in_words(graph, id) + " is missing in its order");
    }
}

}  // namespace kernelgen
