#include "mutation/mutant.hpp"

#include <algorithm>
#include <cmath>
#include <map>

namespace mutation {
namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::Ref;
using kernelgen::Selection;
using kernelgen::Type;

/** Whether rounding the value of `id` would be a rounding that its row does not have. */
bool is_inside_a_row(const Graph& graph, NodeId id) {
    bool has_rows = false;
    bool goes_on = false;
    for (const NodeId user : graph.live()) {
        const Node& u = graph.node(user);
        has_rows = has_rows || u.op == Op::Round;
        goes_on = goes_on || ((u.a == id || u.b == id) && u.op != Op::Round);
    }
    return has_rows && goes_on;
}

/** A product by 1/2 is a binary32 number already. */
bool is_exact_product(const Graph& graph, const Node& n) {
    if (n.op != Op::Mul || graph.node(n.b).op != Op::Constant) return false;
    const auto constant = static_cast<std::size_t>(graph.node(n.b).constant);
    int exponent = 0;
    return std::frexp(graph.constants()[constant].front().to_binary64(), &exponent) == 0.5;
}

bool changes(const Graph& graph, NodeId id, Change change) {
    const Node& n = graph.node(id);
    switch (change) {
        case Change::Sign:
            return n.op == Op::Add || n.op == Op::Sub || n.op == Op::Flip;
        case Change::LastDigit:
            return n.op == Op::Constant;
        case Change::OperandSwap:
            return n.op == Op::Sub || (n.op == Op::Shuffle && n.a != n.b);
        case Change::EarlyRounding:
            return n.type == Type::Binary64 &&
                   (n.op == Op::Add || n.op == Op::Sub || n.op == Op::Mul) &&
                   !is_exact_product(graph, n) && is_inside_a_row(graph, id);
    }
    return false;
}

/** A unit in the last place beside `c`, for numbers whose size is about that of 1. */
Exact beside(const Exact& c, Type type) {
    const Exact small =
        kernelgen::is_binary32(type)
            ? Exact::rational(1, 1L << 24)
            : Exact::product({Exact::rational(1, 1L << 26), Exact::rational(1, 1L << 27)});
    return Exact::sum({c, Exact::product({c, small})});
}

class MutantCopy {
  public:
    MutantCopy(const Graph& from, NodeId changed, Change change)
        : from_(from), changed_(changed), change_(change) {}

    Graph made() {
        for (NodeId id : from_.live()) {
            const Node& n = from_.node(id);
            if (n.op == Op::Store)
                to_.store(done_.at(n.a), n.offset);
            else if (n.op == Op::StoreLow)
                to_.store_low(done_.at(n.a), n.offset);
            else if (n.op == Op::StoreHigh)
                to_.store_high(done_.at(n.a), n.offset);
            else
                done_[id] = id == changed_ ? changed(n) : copied(n);
        }
        return std::move(to_);
    }

  private:
    Ref a(const Node& n) const { return done_.at(n.a); }
    Ref b(const Node& n) const { return done_.at(n.b); }
    const Lanes& lanes(const Node& n) const {
        return from_.constants()[static_cast<std::size_t>(n.constant)];
    }

    Ref copied(const Node& n) {
        return to_.copied(from_, n, n.a == kernelgen::kNone ? Ref{} : a(n),
                          n.b == kernelgen::kNone ? Ref{} : b(n));
    }

    Ref changed(const Node& n) {
        switch (change_) {
            case Change::Sign:
                return with_other_sign(n);
            case Change::LastDigit: {
                Lanes changed = lanes(n);
                // Zeros pad a vector; a digit that stands for a number is to change.
                const auto number = std::find_if(changed.begin(), changed.end(),
                                                 [](const Exact& c) { return !c.is_zero(); });
                *number = beside(*number, n.type);
                return to_.constant(n.type, changed);
            }
            case Change::OperandSwap:
                return n.op == Op::Sub ? to_.sub(b(n), a(n)) : to_.shuffle(b(n), a(n), n.selection);
            case Change::EarlyRounding:
                return to_.widen(to_.round(copied(n)));
        }
        return {};
    }

    Ref with_other_sign(const Node& n) {
        if (n.op == Op::Add) return to_.sub(a(n), b(n));
        if (n.op == Op::Sub) return to_.add(a(n), b(n));
        Selection flipped = n.selection;
        flipped[0] = flipped[0] == 0 ? 1 : 0;
        return to_.flip(a(n), flipped);
    }

    const Graph& from_;
    const NodeId changed_;
    const Change change_;
    Graph to_;
    std::map<NodeId, Ref> done_;
};

}  // namespace

std::string to_string(Change change) {
    switch (change) {
        case Change::Sign:
            return "sign";
        case Change::LastDigit:
            return "last digit";
        case Change::OperandSwap:
            return "operand swap";
        case Change::EarlyRounding:
            return "early rounding";
    }
    return {};
}

std::optional<Graph> mutant(const Graph& graph, NodeId node, Change change) {
    if (!changes(graph, node, change)) return {};
    return MutantCopy(graph, node, change).made();
}

}  // namespace mutation
