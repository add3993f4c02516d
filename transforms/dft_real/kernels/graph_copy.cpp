#include "transforms/dft_real/kernels/graph_copy.hpp"

#include <stdexcept>

namespace dft_real {

using kernelgen::Node;
using kernelgen::Op;

GraphCopy::GraphCopy(const Graph& from) : from_(from) {
    for (NodeId id : from.live()) {
        for (NodeId operand : operands(from.node(id))) users_[operand].push_back(id);
    }
}

Graph GraphCopy::made() {
    for (NodeId id : from_.live()) {
        const Node& n = from_.node(id);
        if (n.op == Op::Store)
            to_.store(copied(n.a), n.offset);
        else
            done_[id] = copy(id, n);
    }
    return std::move(to_);
}

Ref GraphCopy::copy(NodeId id, const Node& n) {
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
        case Op::Mul:
            return to_.mul(copied(n.a), copied(n.b));
        case Op::Widen:
            return to_.widen(copied(n.a));
        case Op::Round:
            return to_.round(copied(n.a));
        default:
            throw std::logic_error("no operation of a row");
    }
}

const Exact& GraphCopy::constant(NodeId id) const {
    return from_.constants()[static_cast<std::size_t>(from_.node(id).constant)].front();
}

bool GraphCopy::is_constant_product(const Node& n) const {
    return n.op == Op::Mul && from_.node(n.b).op == Op::Constant;
}

}  // namespace dft_real
