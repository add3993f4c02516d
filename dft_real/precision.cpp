#include "dft_real/precision.hpp"

#include <map>
#include <optional>

#include "dft_real/row_arithmetic.hpp"

namespace dft_real {
namespace {

using kernelgen::Node;
using kernelgen::Op;

/** Copies what the stores of a graph need, operands before users. */
class Copy {
  public:
    explicit Copy(const Graph& from) : from_(from) {}
    virtual ~Copy() = default;

    Graph made() {
        for (NodeId id : from_.live()) {
            const Node& n = from_.node(id);
            if (n.op == Op::Store)
                to_.store(copied(n.a), n.offset);
            else
                done_[id] = copy(id, n);
        }
        return std::move(to_);
    }

  protected:
    virtual Ref copy(NodeId id, const Node& n) = 0;

    Ref copied(NodeId id) const { return done_.at(id); }

    const Exact& constant(NodeId id) const {
        return from_.constants()[static_cast<std::size_t>(from_.node(id).constant)].front();
    }

    const Graph& from_;
    Graph to_;

  private:
    std::map<NodeId, Ref> done_;
};

class JoinedProducts : public Copy {
  public:
    explicit JoinedProducts(const Graph& from) : Copy(from) {
        for (NodeId id : from.live()) {
            for (NodeId operand : operands(from.node(id))) users_[operand].push_back(id);
        }
    }

  private:
    Ref copy(NodeId id, const Node& n) override {
        switch (n.op) {
            case Op::Load:
                return to_.load(n.type, n.offset);
            case Op::Scale:
                return to_.scale(n.type);
            case Op::Zero:
                return to_.zero(n.type);
            case Op::Constant:
                return to_.constant(n.type, {constant(id)});
            case Op::Add:
                return to_.add(copied(n.a), copied(n.b));
            case Op::Sub:
                return to_.sub(copied(n.a), copied(n.b));
            case Op::Widen:
                return to_.widen(copied(n.a));
            case Op::Round:
                return to_.round(copied(n.a));
            case Op::Mul:
                if (const auto joined = joined_product(n)) return *joined;
                return to_.mul(copied(n.a), copied(n.b));
            default:
                throw std::logic_error("no operation of a row");
        }
    }

    bool is_constant_product(const Node& n) const {
        return n.op == Op::Mul && from_.node(n.b).op == Op::Constant;
    }

    bool has_one_user(NodeId id) const { return users_.at(id).size() == 1; }

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
        const NodeId id = users_.at(product.a).front();
        return has_one_user(id) && from_.node(users_.at(id).front()).op == Op::Round;
    }

    std::map<NodeId, std::vector<NodeId>> users_;
};

class InBinary64 : public Copy {
  public:
    using Copy::Copy;

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
            case Op::Add:
                return to_.add(copied(n.a), copied(n.b));
            case Op::Sub:
                return to_.sub(copied(n.a), copied(n.b));
            case Op::Mul:
                return to_.mul(copied(n.a), copied(n.b));
            case Op::Widen:
            case Op::Round:
                return copied(n.a);
            default:
                throw std::logic_error("no operation of a row");
        }
    }
};

}  // namespace

Graph with_products_joined(const Graph& graph) {
    return JoinedProducts(graph).made();
}

Graph in_binary64(const Graph& graph) {
    return InBinary64(graph).made();
}

}  // namespace dft_real
