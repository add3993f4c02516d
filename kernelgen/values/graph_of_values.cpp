#include "kernelgen/values/graph_of_values.hpp"

#include <cmath>
#include <vector>

namespace kernelgen {
namespace {

/** 2^exponent, by factors that any long holds. */
Exact power_of_two(int exponent) {
    constexpr int kStep = 24;
    std::vector<Exact> factors;
    for (int left = std::abs(exponent); left > 0; left -= kStep) {
        const long factor = 1L << std::min(left, kStep);
        factors.push_back(exponent > 0 ? Exact::rational(factor) : Exact::rational(1, factor));
    }
    return factors.empty() ? Exact::rational(1) : Exact::product(factors);
}

/** A number of binary64, in two halves that any long holds. */
Exact exact(double value) {
    constexpr int kHalf = 27;
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    const double high = std::floor(std::ldexp(fraction, kHalf));
    const double low = std::ldexp(std::ldexp(fraction, kHalf) - high, kHalf);
    return Exact::product({Exact::sum({Exact::product({Exact::rational(static_cast<long>(high)),
                                                       power_of_two(kHalf)}),
                                       Exact::rational(static_cast<long>(low))}),
                           power_of_two(exponent - 2 * kHalf)});
}

class Folding {
  public:
    explicit Folding(const ValueGraph& values) : values_(values), refs_(values.size()) {}

    Graph run(const Outputs& outputs) {
        for (ValueId id : values_.live(outputs)) refs_[static_cast<std::size_t>(id)] = made(id);
        for (const auto& [element, value] : outputs)
            graph_.store(graph_.positive(ref(value)), element);
        return std::move(graph_);
    }

  private:
    Ref ref(SignedValue value) const {
        const Ref positive = refs_[static_cast<std::size_t>(value.id)];
        return value.negative ? -positive : positive;
    }

    /** The graph takes -a - b as -(a + b), which has the other sign where it is zero. */
    Ref sum(SignedValue a, SignedValue b) {
        if (a.negative && b.negative) return graph_.sub(graph_.positive(ref(a)), ref(-b));
        return graph_.add(ref(a), ref(b));
    }

    Ref made(ValueId id) {
        const ValueNode& n = values_.node(id);
        switch (n.op) {
            case ValueOp::Input:
                return graph_.load(n.precision, n.place);
            case ValueOp::Scale:
                return graph_.scale(n.precision);
            case ValueOp::Constant:
                if (constant_of(n) == 0) return graph_.zero(n.precision);
                return graph_.constant(n.precision, {exact(constant_of(n))});
            case ValueOp::Add:
                return sum(n.a, n.b);
            case ValueOp::Mul:
                return graph_.mul(ref(n.a), ref(n.b));
            case ValueOp::Widen:
                return graph_.widen(ref(n.a));
            case ValueOp::Round:
                return graph_.round(ref(n.a));
        }
        return {};
    }

    const ValueGraph& values_;
    std::vector<Ref> refs_;
    Graph graph_;
};

}  // namespace

Graph graph_of_values(const ValueGraph& values, const Outputs& outputs) {
    return Folding(values).run(outputs);
}

}  // namespace kernelgen
