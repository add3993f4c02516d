#include "tests/dft_complex/white_box/support/constants_of_graph.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace dft_complex_test {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;

const kernelgen::Lanes& lanes_of(const Graph& graph, const Node& constant) {
    return graph.constants()[static_cast<std::size_t>(constant.constant)];
}

void for_each_lane(const Graph& graph, const auto& visit) {
    for (NodeId id : graph.live()) {
        const Node& n = graph.node(id);
        if (n.op != Op::Constant) continue;
        for (const Exact& lane : lanes_of(graph, n)) visit(lane);
    }
}

}  // namespace

std::string magnitude_of(const Exact& constant) {
    return (constant.is_negative() ? -constant : constant).key();
}

Magnitudes magnitudes(const Graph& graph) {
    Magnitudes keys;
    for_each_lane(graph, [&](const Exact& lane) { keys.insert(magnitude_of(lane)); });
    return keys;
}

std::set<double> rounded_magnitudes(const Graph& graph) {
    std::set<double> values;
    for_each_lane(graph, [&](const Exact& lane) { values.insert(std::fabs(lane.to_binary64())); });
    return values;
}

std::map<std::string, int> uses_in_products(const Graph& graph) {
    std::map<std::string, int> uses;
    for (NodeId id : graph.live()) {
        const Node& n = graph.node(id);
        if (n.op != Op::Mul) continue;
        for (NodeId operand : {n.a, n.b}) {
            if (graph.node(operand).op != Op::Constant) continue;
            for (const Exact& lane : lanes_of(graph, graph.node(operand)))
                ++uses[magnitude_of(lane)];
        }
    }
    return uses;
}

Magnitudes roots(int order) {
    Magnitudes keys;
    for (int k = 0; k < order; ++k) {
        keys.insert(magnitude_of(Exact::cosine(k, order)));
        keys.insert(magnitude_of(Exact::sine(k, order)));
    }
    return keys;
}

Magnitudes without(const Magnitudes& a, const Magnitudes& b) {
    Magnitudes rest;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::inserter(rest, rest.begin()));
    return rest;
}

}  // namespace dft_complex_test
