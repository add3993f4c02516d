#include "transforms/dft_complex/small_transforms/dft_over_reals.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/network_evaluation.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {
namespace {

using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;

constexpr Type kScalar = Type::Binary64;

// All outputs of the rule's network over scalars; the imaginary parts of the inputs are absent.
Points dft_of_reals(Graph& graph, const Rule& rule) {
    Network network;
    const Signal outputs = dft(network, rule, network.input(rule.length));
    const auto algebra = make_algebra(graph, kScalar, Layout::Split, false);
    Points u;
    for (int j = 0; j < rule.length; ++j) u.push_back({graph.load(kScalar, j), {}});
    return evaluate(*algebra, network, u, outputs, ConjugateFactors::Apart);
}

void collect(const Graph& graph, Ref value, std::set<NodeId>& nodes) {
    if (value.is_zero() || !nodes.insert(value.id).second) return;
    for (NodeId operand : operands(graph.node(value.id))) collect(graph, {operand}, nodes);
}

void collect(const Graph& graph, const ComplexVector& value, std::set<NodeId>& nodes) {
    collect(graph, value.re, nodes);
    collect(graph, value.im, nodes);
}

const Exact& constant_of(const Graph& graph, const Node& product) {
    const Node& b = graph.node(product.b);
    const Node& constant = b.op == Op::Constant ? b : graph.node(product.a);
    return graph.constants()[at(constant.constant)].front();
}

NodeId factor_of(const Graph& graph, const Node& product) {
    return graph.node(product.b).op == Op::Constant ? product.a : product.b;
}

ComplexVector signed_by(const ComplexVector& x, bool negative) {
    return negative ? ComplexVector{-x.re, -x.im} : x;
}

}  // namespace

// Outputs k and L - k are conjugate; of the two, the one that needs fewer further nodes is kept.
RealDft::RealDft(const Rule& rule) : length_(rule.length) {
    const Points y = dft_of_reals(graph_, rule);
    std::set<NodeId> nodes;
    for (int k = 0; k <= length_ / 2; ++k) {
        const int mirror = (length_ - k) % length_;
        std::set<NodeId> by_k = nodes;
        std::set<NodeId> by_mirror = nodes;
        collect(graph_, y[at(k)], by_k);
        collect(graph_, y[at(mirror)], by_mirror);
        const bool direct = by_k.size() <= by_mirror.size();
        nodes = direct ? by_k : by_mirror;
        const ComplexVector& kept = y[at(direct ? k : mirror)];
        even_.push_back({kept.re});
        odd_.push_back({direct ? -kept.im : kept.im});
    }
    join_products_of_products();
    leave_out_last_products();
    nodes = nodes_of_outputs();
    needed_.assign(nodes.begin(), nodes.end());
}

std::set<NodeId> RealDft::nodes_of_outputs() const {
    std::set<NodeId> nodes;
    for (const auto* outputs : {&even_, &odd_}) {
        for (const Output& output : *outputs) collect(graph_, output.value, nodes);
    }
    return nodes;
}

// A product that only other products use goes into their constants.
void RealDft::join_products_of_products() {
    const std::set<NodeId> nodes = nodes_of_outputs();
    std::set<NodeId> used_as_it_is;
    for (const auto* outputs : {&even_, &odd_}) {
        for (const Output& output : *outputs) used_as_it_is.insert(output.value.id);
    }
    for (NodeId id : nodes) {
        const Node& n = graph_.node(id);
        if (n.op == Op::Add || n.op == Op::Sub) used_as_it_is.insert({n.a, n.b});
    }
    Graph joined;
    std::map<NodeId, Ref> image;
    for (NodeId id : nodes) {
        const Node& n = graph_.node(id);
        switch (n.op) {
            case Op::Load:
                image[id] = joined.load(kScalar, n.offset);
                break;
            case Op::Add:
                image[id] = joined.add(image.at(n.a), image.at(n.b));
                break;
            case Op::Sub:
                image[id] = joined.sub(image.at(n.a), image.at(n.b));
                break;
            case Op::Mul: {
                Exact constant = constant_of(graph_, n);
                NodeId factor = factor_of(graph_, n);
                while (graph_.node(factor).op == Op::Mul && !used_as_it_is.contains(factor)) {
                    constant = Exact::product({constant, constant_of(graph_, graph_.node(factor))});
                    factor = factor_of(graph_, graph_.node(factor));
                }
                image[id] = joined.mul(image.at(factor), {constant});
                break;
            }
            default:
                break;
        }
    }
    for (auto* outputs : {&even_, &odd_}) {
        for (Output& output : *outputs) {
            if (output.value.is_zero()) continue;
            const Ref value = image.at(output.value.id);
            output.value = {value.id, value.negative != output.value.negative};
        }
    }
    graph_ = std::move(joined);
}

void RealDft::leave_out_last_products() {
    std::map<NodeId, int> uses;
    for (const auto* outputs : {&even_, &odd_}) {
        for (const Output& output : *outputs) {
            if (!output.value.is_zero()) ++uses[output.value.id];
        }
    }
    for (NodeId id : nodes_of_outputs()) {
        for (NodeId operand : operands(graph_.node(id))) ++uses[operand];
    }
    for (auto* outputs : {&even_, &odd_}) {
        for (Output& output : *outputs) {
            if (output.value.is_zero()) continue;
            const Node& n = graph_.node(output.value.id);
            if (n.op != Op::Mul || uses[output.value.id] > 1) continue;
            output.factor = constant_of(graph_, n);
            output.value.id = factor_of(graph_, n);
        }
    }
}

RealDft::HalfSpectrum RealDft::forward(ComplexAlgebra& algebra, const Points& u) const {
    std::map<NodeId, ComplexVector> values;
    for (NodeId id : needed_) {
        const Node& n = graph_.node(id);
        switch (n.op) {
            case Op::Load:
                values[id] = u[at(n.offset)];
                break;
            case Op::Add:
                values[id] = algebra.add(values.at(n.a), values.at(n.b));
                break;
            case Op::Sub:
                values[id] = algebra.sub(values.at(n.a), values.at(n.b));
                break;
            case Op::Mul:
                values[id] =
                    algebra.scaled(values.at(factor_of(graph_, n)), constant_of(graph_, n));
                break;
            default:
                break;
        }
    }
    const auto value = [&](Ref ref) {
        return ref.is_zero() ? ComplexVector{} : signed_by(values.at(ref.id), ref.negative);
    };
    HalfSpectrum spectrum;
    for (const Output& output : even_) spectrum.even.push_back(value(output.value));
    for (const Output& output : odd_) spectrum.odd.push_back(value(output.value));
    return spectrum;
}

Points RealDft::transposed(ComplexAlgebra& algebra, const HalfSpectrum& spectrum) const {
    std::map<NodeId, ComplexVector> sums;
    const auto contribute = [&](Ref to, const ComplexVector& value) {
        if (to.is_zero()) return;
        ComplexVector& sum = sums[to.id];
        sum = algebra.add(sum, signed_by(value, to.negative));
    };
    for (std::size_t k = 0; k < even_.size(); ++k) {
        contribute(even_[k].value, spectrum.even[k]);
        contribute(odd_[k].value, spectrum.odd[k]);
    }
    Points r(at(length_));
    for (std::size_t i = needed_.size(); i-- > 0;) {
        const NodeId id = needed_[i];
        const Node& n = graph_.node(id);
        const ComplexVector value = sums[id];
        switch (n.op) {
            case Op::Load:
                r[at(n.offset)] = value;
                break;
            case Op::Add:
                contribute({n.a}, value);
                contribute({n.b}, value);
                break;
            case Op::Sub:
                contribute({n.a}, value);
                contribute({n.b, true}, value);
                break;
            case Op::Mul:
                contribute({factor_of(graph_, n)}, algebra.scaled(value, constant_of(graph_, n)));
                break;
            default:
                break;
        }
    }
    return r;
}

}  // namespace dft_complex
