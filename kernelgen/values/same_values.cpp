#include "kernelgen/values/same_values.hpp"

#include <cstdio>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

#include "kernelgen/values/unfold.hpp"
#include "targets/targets.hpp"

namespace kernelgen {
namespace {

constexpr int kReadableDepth = 2;
constexpr int kGreatestDepth = 4;

using Pair = std::pair<SignedValue, SignedValue>;

/** What takes its operands alike, so that a difference lies among them. */
bool are_alike(const ValueGraph& values, const Pair& pair) {
    const ValueNode& a = values.node(pair.first.id);
    const ValueNode& b = values.node(pair.second.id);
    return pair.first.negative == pair.second.negative && a.op == b.op &&
           a.precision == b.precision && !operands(a).empty();
}

/** Places of the inputs that a value is made of. */
std::set<int> places_of(const ValueGraph& values, SignedValue value) {
    std::set<int> places;
    for (ValueId id : values.live({{0, value}})) {
        const ValueNode& n = values.node(id);
        if (n.op == ValueOp::Input) places.insert(n.place);
    }
    return places;
}

/** The operands in which two different nodes of one operation differ. Where both do, those made of
 * the same inputs are a pair, if they tell. */
std::optional<Pair> differing_operands(const ValueGraph& values, const ValueNode& a,
                                       const ValueNode& b) {
    if (operands(a).size() < 2 || a.b == b.b) return Pair{a.a, b.a};
    if (a.a == b.a) return Pair{a.b, b.b};
    if (a.a == b.b) return Pair{a.b, b.a};
    if (a.b == b.a) return Pair{a.a, b.b};
    if (places_of(values, a.a) == places_of(values, a.b)) return {};
    if (places_of(values, a.a) == places_of(values, b.a)) return Pair{a.a, b.a};
    if (places_of(values, a.a) == places_of(values, b.b)) return Pair{a.a, b.b};
    return {};
}

/** Down from two different values, as far as they are formed alike. */
Pair first_difference(const ValueGraph& values, Pair pair) {
    while (are_alike(values, pair)) {
        const ValueNode& a = values.node(pair.first.id);
        const std::optional<Pair> next = differing_operands(values, a, values.node(pair.second.id));
        if (!next) break;
        // A sum or a product tells more than an operand of it alone.
        if (operands(a).size() == 2 && !are_alike(values, *next)) break;
        pair = *next;
    }
    return pair;
}

std::string number(const ValueNode& node) {
    char digits[32];
    std::snprintf(digits, sizeof digits, is_binary32(node.precision) ? "%.9g" : "%.17g",
                  constant_of(node));
    return digits;
}

std::string operation_in_words(const ValueGraph& values, const ValueNode& n, int depth) {
    if (depth == 0 && !operands(n).empty()) return "...";
    switch (n.op) {
        case ValueOp::Input:
            return "x[" + std::to_string(n.place) + "]";
        case ValueOp::Scale:
            return "scale";
        case ValueOp::Constant:
            return number(n);
        case ValueOp::Add:
            return "(" + in_words(values, n.a, depth - 1) + (n.b.negative ? " - " : " + ") +
                   in_words(values, {n.b.id}, depth - 1) + ")";
        case ValueOp::Mul:
            return in_words(values, n.a, depth - 1) + " * " + in_words(values, n.b, depth - 1);
        case ValueOp::Widen:
            return "wide(" + in_words(values, n.a, depth - 1) + ")";
        case ValueOp::Round:
            return "rounded(" + in_words(values, n.a, depth - 1) + ")";
    }
    return {};
}

std::string with_precision(const ValueGraph& values, SignedValue value, int depth) {
    const bool single = is_binary32(values.node(value.id).precision);
    return in_words(values, value, depth) + " in " + (single ? "binary32" : "binary64");
}

[[noreturn]] void throw_difference(const ValueGraph& values, const std::string& kernel, int element,
                                   const std::string& reference, const Pair& outputs) {
    const auto [found, wanted] = first_difference(values, outputs);
    int depth = kReadableDepth;
    while (depth < kGreatestDepth &&
           with_precision(values, found, depth) == with_precision(values, wanted, depth))
        ++depth;
    throw std::logic_error(kernel + ": output " + std::to_string(element) +
                           " has not the bits of " + reference + ": it takes " +
                           with_precision(values, found, depth) + " for " +
                           with_precision(values, wanted, depth));
}

void throw_if_missing(const std::string& kernel, const Outputs& outputs,
                      const std::string& reference, const Outputs& wanted) {
    for (const auto& [element, value] : wanted) {
        if (outputs.count(element) == 0)
            throw std::logic_error(kernel + ": output " + std::to_string(element) +
                                   " is not written, but " + reference + " has it");
    }
}

}  // namespace

std::string in_words(const ValueGraph& values, SignedValue value, int depth) {
    return (value.negative ? "-" : "") + operation_in_words(values, values.node(value.id), depth);
}

void prove_same_outputs(const ValueGraph& values, const std::string& kernel, const Outputs& outputs,
                        const std::string& reference, const Outputs& wanted) {
    throw_if_missing(kernel, outputs, reference, wanted);
    throw_if_missing(reference, wanted, kernel, outputs);
    for (const auto& [element, value] : outputs) {
        const SignedValue other = wanted.at(element);
        if (value != other) throw_difference(values, kernel, element, reference, {value, other});
    }
}

void prove_same_values(const std::string& kernel, const Graph& graph, const std::string& reference,
                       const Graph& wanted) {
    ValueGraph values;
    const Outputs outputs = unfold(graph, values);
    const Outputs wanted_outputs = unfold(wanted, values);
    prove_same_outputs(values, kernel, outputs, reference, wanted_outputs);
}

void prove_values_of_reference(const std::string& kernel, const Graph& graph, const Target& target,
                               const std::function<Graph()>& described_for_reference) {
    if (target.name == kReference.name) return;
    const auto name_for = [&](const Target& any) {
        return kernel + " for " + std::string(any.name);
    };
    prove_same_values(name_for(target), graph, name_for(kReference), described_for_reference());
}

}  // namespace kernelgen
