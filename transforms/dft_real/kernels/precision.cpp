#include "transforms/dft_real/kernels/precision.hpp"

#include <optional>

#include "transforms/dft_real/kernels/graph_copy.hpp"

namespace dft_real {
namespace {

using kernelgen::Node;
using kernelgen::Op;

class JoinedProducts : public GraphCopy {
  public:
    using GraphCopy::GraphCopy;

  private:
    Ref copy(NodeId id, const Node& n) override {
        if (const auto joined = joined_product(n)) return *joined;
        return GraphCopy::copy(id, n);
    }

    /** Whether `id` is the sum of products by constants alone. */
    bool holds_products_alone(NodeId id) const {
        const Node& n = from_.node(id);
        if (n.op == Op::Add || n.op == Op::Sub)
            return holds_products_alone(n.a) && holds_products_alone(n.b);
        return is_constant_product(n);
    }

    Ref times(NodeId row, const Exact& factor) {
        const Node& n = from_.node(row);
        if (n.op == Op::Add || n.op == Op::Sub) {
            // One after the other, so that all compilers number the nodes alike.
            const Ref b = times(n.b, factor);
            const Ref a = times(n.a, factor);
            return n.op == Op::Add ? to_.add(a, b) : to_.sub(a, b);
        }
        return to_.mul(copied(n.a), Lanes{product_of_rounded(constant(n.b), factor)});
    }

    std::optional<Ref> joined_product(const Node& product) {
        if (!is_constant_product(product)) return {};
        const Node& widened = from_.node(product.a);
        if (widened.op != Op::Widen || !has_one_user(product.a) || !has_one_user(widened.a))
            return {};
        const Node& value = from_.node(widened.a);
        const Exact& factor = constant(product.b);
        if (is_constant_product(value) && ends_as_the_one_product(product)) {
            const Ref input = to_.widen(copied(value.a));
            return to_.mul(input, Lanes{product_of_rounded(constant(value.b), factor)});
        }
        if (value.op == Op::Round && ends_as_the_one_product(product) &&
            holds_products_alone(value.a))
            return times(value.a, factor);
        return {};
    }

    bool ends_as_the_one_product(const Node& product) const {
        const NodeId id = users(product.a).front();
        return has_one_user(id) && from_.node(users(id).front()).op == Op::Round;
    }
};

/** Sums of a three-point butterfly in the precision of its row. */
class WideSums : public GraphCopy {
  public:
    using GraphCopy::GraphCopy;

  private:
    Ref copy(NodeId id, const Node& n) override {
        if (n.op != Op::Widen || !is_sum_of_a_row_pair(n.a) || !meets_the_sine_alone(id))
            return GraphCopy::copy(id, n);
        const Node& sum = from_.node(n.a);
        const Ref a = to_.widen(copied(sum.a));
        const Ref b = to_.widen(copied(sum.b));
        return sum.op == Op::Add ? to_.add(a, b) : to_.sub(a, b);
    }

    /** Whether `id` is a sum that goes nowhere else and whose operands a row a - b/2 takes too. */
    bool is_sum_of_a_row_pair(NodeId id) const {
        const Node& n = from_.node(id);
        if ((n.op != Op::Add && n.op != Op::Sub) || !has_one_user(id)) return false;
        return is_row_with_half(n.a, n.b) || is_row_with_half(n.b, n.a);
    }

    bool is_row_with_half(NodeId whole, NodeId halved) const {
        for (NodeId wide : users(halved)) {
            if (from_.node(wide).op != Op::Widen) continue;
            for (NodeId half : users(wide)) {
                if (is_product_by(half, Exact::rational(1, 2)) && stands_in_a_sum_with(half, whole))
                    return true;
            }
        }
        return false;
    }

    bool stands_in_a_sum_with(NodeId product, NodeId narrow) const {
        const auto is_widened = [&](NodeId id) {
            return from_.node(id).op == Op::Widen && from_.node(id).a == narrow;
        };
        for (NodeId id : users(product)) {
            const Node& n = from_.node(id);
            if ((n.op == Op::Add || n.op == Op::Sub) && (is_widened(n.a) || is_widened(n.b)))
                return true;
        }
        return false;
    }

    bool meets_the_sine_alone(NodeId id) const {
        for (NodeId user : users(id)) {
            if (!is_product_by(user, Exact::sine(1, 3))) return false;
        }
        return true;
    }

    bool is_product_by(NodeId id, const Exact& factor) const {
        const Node& n = from_.node(id);
        return is_constant_product(n) && constant(n.b).key() == factor.key();
    }
};

class InBinary64 : public GraphCopy {
  public:
    using GraphCopy::GraphCopy;

  private:
    Ref copy(NodeId id, const Node& n) override {
        switch (n.op) {
            case Op::Load:
                return to_.load(Type::Binary64, n.offset);
            case Op::Scale:
                return to_.scale(Type::Binary64);
            case Op::Zero:
                return to_.zero(Type::Binary64);
            case Op::Constant:
                return to_.constant(Type::Binary64, {constant(id)});
            case Op::Widen:
            case Op::Round:
                return copied(n.a);
            default:
                return GraphCopy::copy(id, n);
        }
    }
};

}  // namespace

Graph with_products_joined(const Graph& graph) {
    return JoinedProducts(graph).made();
}

Graph with_wide_sums(const Graph& graph) {
    return WideSums(graph).made();
}

Graph in_binary64(const Graph& graph) {
    return InBinary64(graph).made();
}

}  // namespace dft_real
