#include "kernelgen/values/value_graph.hpp"

#include <bit>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace kernelgen {
namespace {

bool is_made(SignedValue value) {
    return value.id >= 0;
}

SignedValue positive(SignedValue value) {
    return {value.id, false};
}

}  // namespace

std::size_t ValueGraph::Hash::operator()(const ValueNode& node) const {
    // Two odd factors whose digits look random spread neighbouring numbers over all buckets.
    std::uint64_t hash =
        static_cast<std::uint64_t>(node.op) * 2 + (is_binary32(node.precision) ? 1 : 0);
    const auto take = [&](std::uint64_t word) {
        hash = (hash ^ word) * 0x9E3779B97F4A7C15ULL;
        hash ^= hash >> 32;
    };
    const auto of = [](SignedValue value) {
        return static_cast<std::uint64_t>(value.id) * 2 + (value.negative ? 1 : 0);
    };
    take(of(node.a));
    take(of(node.b));
    take(node.bits ^ static_cast<std::uint64_t>(node.place));
    return static_cast<std::size_t>(hash);
}

SignedValue ValueGraph::intern(const ValueNode& node) {
    const auto [entry, fresh] = known_.try_emplace(node, static_cast<ValueId>(nodes_.size()));
    if (fresh) nodes_.push_back(node);
    return {entry->second};
}

SignedValue ValueGraph::input(Type precision, int place) {
    return intern({.op = ValueOp::Input, .precision = precision, .place = place});
}

SignedValue ValueGraph::scale(Type precision) {
    return intern({.op = ValueOp::Scale, .precision = precision});
}

SignedValue ValueGraph::constant(Type precision, double value) {
    const SignedValue size = intern({.op = ValueOp::Constant,
                                     .precision = precision,
                                     .bits = std::bit_cast<std::uint64_t>(std::fabs(value))});
    return std::signbit(value) ? -size : size;
}

SignedValue ValueGraph::add(SignedValue a, SignedValue b) {
    const Type precision = common_precision(a, b);
    if (b < a) std::swap(a, b);
    return intern({.op = ValueOp::Add, .precision = precision, .a = a, .b = b});
}

SignedValue ValueGraph::mul(SignedValue a, SignedValue b) {
    const Type precision = common_precision(a, b);
    const bool negative = a.negative != b.negative;
    if (b.id < a.id) std::swap(a, b);
    const SignedValue product =
        is_one(a) ? positive(b)
        : is_one(b)
            ? positive(a)
            : intern(
                  {.op = ValueOp::Mul, .precision = precision, .a = positive(a), .b = positive(b)});
    return negative ? -product : product;
}

SignedValue ValueGraph::widen(SignedValue a) {
    return convert(ValueOp::Widen, a, Type::Binary32, Type::Binary64);
}

SignedValue ValueGraph::round(SignedValue a) {
    return convert(ValueOp::Round, a, Type::Binary64, Type::Binary32);
}

SignedValue ValueGraph::convert(ValueOp op, SignedValue a, Type from, Type to) {
    if (node(a.id).precision != from)
        throw std::logic_error("a conversion takes a value of the other precision");
    const SignedValue converted = intern({.op = op, .precision = to, .a = positive(a)});
    return a.negative ? -converted : converted;
}

Type ValueGraph::common_precision(SignedValue a, SignedValue b) const {
    const Type precision = node(a.id).precision;
    if (node(b.id).precision != precision)
        throw std::logic_error("operands of a sum or a product are of one precision");
    return precision;
}

bool ValueGraph::is_one(SignedValue value) const {
    const ValueNode& n = node(value.id);
    return n.op == ValueOp::Constant && constant_of(n) == 1;
}

std::vector<ValueId> ValueGraph::live(const Outputs& outputs) const {
    std::vector<bool> needed(nodes_.size(), false);
    for (const auto& [element, value] : outputs) needed[static_cast<std::size_t>(value.id)] = true;
    // Operands have smaller numbers than their users, so one backward pass is enough.
    for (std::size_t i = nodes_.size(); i-- > 0;) {
        if (!needed[i]) continue;
        for (SignedValue operand : operands(nodes_[i]))
            needed[static_cast<std::size_t>(operand.id)] = true;
    }
    std::vector<ValueId> result;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (needed[i]) result.push_back(static_cast<ValueId>(i));
    }
    return result;
}

std::vector<SignedValue> operands(const ValueNode& node) {
    std::vector<SignedValue> result;
    if (is_made(node.a)) result.push_back(node.a);
    if (is_made(node.b)) result.push_back(node.b);
    return result;
}

double constant_of(const ValueNode& node) {
    return std::bit_cast<double>(node.bits);
}

}  // namespace kernelgen
