#include "transforms/dft_real/kernels/real_kernel.hpp"

#include "kernelgen/lanes/pack_search.hpp"
#include "kernelgen/schedule/settled_order.hpp"
#include "transforms/dft_real/kernels/precision.hpp"

namespace dft_real {
namespace {

using kernelgen::Graph;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;

bool is_scale(const Graph& graph, NodeId id) {
    const Node& n = graph.node(id);
    return n.op == Op::Scale || (n.op == Op::Widen && is_scale(graph, n.a));
}

bool is_product_by_scale(const Graph& graph, const Node& n) {
    return n.op == Op::Mul && (is_scale(graph, n.a) || is_scale(graph, n.b));
}

bool is_doubled_input(const Graph& graph, const Node& n) {
    if (n.op != Op::Mul || graph.node(n.b).op != Op::Constant) return false;
    const auto constant = static_cast<std::size_t>(graph.node(n.b).constant);
    return graph.node(n.a).op == Op::Load && graph.constants()[constant].front().value() == 2;
}

bool is_sum(const Node& n) {
    return n.op == Op::Add || n.op == Op::Sub;
}

template <class Predicate>
int number_of(const Graph& graph, const Predicate& is_counted) {
    int number = 0;
    for (NodeId id : graph.live()) number += is_counted(graph.node(id)) ? 1 : 0;
    return number;
}

}  // namespace

std::string RealKernel::name() const {
    return "qsvg" + family.name + "_" + std::to_string(length) + "_" + suffix(element);
}

std::vector<int> own_lengths(Kind kind, Element element, const Target& target) {
    std::vector<int> own = lengths();
    if (target.level_below == nullptr) return own;
    std::erase_if(own, [&](int length) {
        return tuning_of(kind, row_of(length), element, target).order.empty();
    });
    return own;
}

RealKernel described(const Family& family, int length, Element element, const Graph& network,
                     const Target& target) {
    const Graph joined = with_products_joined(network);
    const Graph rows = has_wide_sums(length) ? with_wide_sums(joined) : joined;
    RealKernel kernel{target,
                      family,
                      length,
                      element,
                      element == Element::Real32 ? rows : in_binary64(rows),
                      tuning_of(family.kind, row_of(length), element, target)};
    if (target.level_below == nullptr) return kernel;
    RealKernel below = described(family, length, element, network, *target.level_below);
    if (kernel.tuning.order.empty()) return below;
    if (kernel.tuning.packs.empty()) kernel.tuning.packs = below.tuning.packs;
    return kernel;
}

RealKernel proven(const Family& family, int length, Element element, const Graph& network,
                  int inputs, int outputs, const kernelgen::Definition& definition,
                  const Target& target) {
    RealKernel kernel = described(family, length, element, network, target);
    kernelgen::prove(kernel.name() + " by stages " + in_words(row_of(length).order_of(family.kind)),
                     kernel.graph, inputs, outputs, definition);
    return kernel;
}

Cost network_cost(const Graph& graph) {
    const auto is_product = [&](const Node& n) {
        return n.op == Op::Mul && !is_product_by_scale(graph, n) && !is_doubled_input(graph, n);
    };
    return {number_of(graph, is_sum), number_of(graph, is_product)};
}

int outputs_scaled_in_rows(const Graph& graph) {
    return number_of(graph, [&](const Node& n) {
        return is_product_by_scale(graph, n) &&
               (graph.node(n.a).op == Op::Widen || graph.node(n.b).op == Op::Widen);
    });
}

int doubled_inputs(const Graph& graph) {
    return number_of(graph, [&](const Node& n) { return is_doubled_input(graph, n); });
}

int wide_sums(const Graph& graph) {
    return number_of(graph, [&](const Node& n) {
        return is_sum(n) && n.type == kernelgen::Type::Binary64 &&
               graph.node(n.a).op == Op::Widen && graph.node(n.b).op == Op::Widen;
    });
}

Graph written_graph(const RealKernel& kernel) {
    if (kernel.tuning.packs.empty()) return kernel.graph;
    return kernelgen::laned_graph(kernel.name(), kernel.graph, kernel.tuning.packs);
}

kernelgen::Schedule schedule_of(const RealKernel& kernel) {
    return kernelgen::settled_schedule(kernel.tuning.order, written_graph(kernel), kernel.target);
}

}  // namespace dft_real
