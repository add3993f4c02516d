#include "kernelgen/values/unfold.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "kernelgen/proof/ieee_arithmetic.hpp"

namespace kernelgen {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

int number_touched(const Node& node) {
    const Elements elements = touched(node);
    return elements.past - elements.first;
}

class Unfolding {
  public:
    Unfolding(const Graph& graph, ValueGraph& values, const Source& source)
        : graph_(graph), values_(values), source_(source), order_(graph.live()) {
        for (NodeId id : order_) widest_ = std::max(widest_, lane_count(graph.node(id).type));
        known_.resize(graph.size() * at(widest_));
    }

    Outputs outputs() {
        Outputs result;
        for (NodeId id : order_) {
            const Node& n = graph_.node(id);
            if (!is_store(n.op)) continue;
            const int count = number_touched(n);
            const int first = n.op == Op::StoreHigh ? lane_count(n.type) - count : 0;
            for (int i = 0; i < count; ++i) {
                if (!result.try_emplace(n.offset + i, value(n.a, first + i)).second)
                    throw std::logic_error("element " + std::to_string(n.offset + i) +
                                           " is written twice");
            }
        }
        return result;
    }

  private:
    SignedValue value(NodeId id, int lane) {
        if (lane >= lane_count(graph_.node(id).type)) throw_dead(id, lane);
        const std::size_t slot = at(id) * at(widest_) + at(lane);
        if (known_[slot] == SignedValue{}) known_[slot] = made(id, lane);
        return known_[slot];
    }

    [[noreturn]] static void throw_dead(NodeId id, int lane) {
        throw std::logic_error("lane " + std::to_string(lane) + " of node " + std::to_string(id) +
                               " holds no value");
    }

    SignedValue made(NodeId id, int lane) {
        const Node& n = graph_.node(id);
        const Type precision = precision_of(n.type);
        switch (n.op) {
            case Op::Load:
            case Op::LoadLow:
            case Op::LoadScalar:
                return lane < number_touched(n) ? source_(n.offset + lane, precision)
                                                : values_.zero(precision);
            case Op::LoadHigh: {
                const int low = lane_count(n.type) - number_touched(n);
                return lane < low ? value(n.a, lane) : source_(n.offset + lane - low, precision);
            }
            case Op::Gather:
                return source_(n.selection.at(at(lane)), precision);
            case Op::Scale:
                return values_.scale(precision);
            case Op::Constant: {
                const Lanes& lanes = graph_.constants()[at(n.constant)];
                if (at(lane) >= lanes.size()) throw_dead(id, lane);
                return values_.constant(precision,
                                        IeeeArithmetic::constant(precision, lanes[at(lane)]));
            }
            case Op::Zero:
                return values_.zero(precision);
            case Op::Add:
            case Op::Sub:
            case Op::Mul: {
                // One after the other, so that all compilers number the nodes alike.
                const SignedValue a = value(n.a, lane);
                const SignedValue b = value(n.b, lane);
                if (n.op == Op::Mul) return values_.mul(a, b);
                return values_.add(a, n.op == Op::Sub ? -b : b);
            }
            case Op::Flip: {
                const SignedValue a = value(n.a, lane);
                return n.selection.at(at(lane)) != 0 ? -a : a;
            }
            case Op::Shuffle: {
                const int from = n.selection.at(at(lane));
                const int lanes = lane_count(n.type);
                return from < lanes ? value(n.a, from) : value(n.b, from - lanes);
            }
            case Op::Spread:
                return value(n.a, 0);
            case Op::Join: {
                const int lanes = lane_count(graph_.node(n.a).type);
                if (lane >= 2 * lanes) throw_dead(id, lane);
                return lane < lanes ? value(n.a, lane) : value(n.b, lane - lanes);
            }
            case Op::Part:
                return value(n.a, n.offset * lane_count(n.type) + lane);
            case Op::Widen:
                return values_.widen(value(n.a, lane));
            case Op::Round:
                return values_.round(value(n.a, lane));
            case Op::Store:
            case Op::StoreLow:
            case Op::StoreHigh:
                break;
        }
        throw_dead(id, lane);
    }

    const Graph& graph_;
    ValueGraph& values_;
    const Source& source_;
    const std::vector<NodeId> order_;
    int widest_ = 1;
    std::vector<SignedValue> known_;
};

}  // namespace

Outputs unfold(const Graph& graph, ValueGraph& values, const Source& source) {
    return Unfolding(graph, values, source).outputs();
}

Outputs unfold(const Graph& graph, ValueGraph& values) {
    return unfold(graph, values,
                  [&](int element, Type precision) { return values.input(precision, element); });
}

}  // namespace kernelgen
