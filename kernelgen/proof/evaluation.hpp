#pragma once

/**
 * @file
 * @brief Runs a graph in graph order over any arithmetic.
 *
 * `Arithmetic` supplies a lane type `Real`, sums and products for a node's type, the conversions,
 * and a constant's value; the walk over nodes, lanes and memory is the same for the proof (exact
 * reals) and for the bit interpreter (IEEE arithmetic).
 */

#include <array>
#include <functional>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

template <class Arithmetic>
class Evaluation {
  public:
    using Real = typename Arithmetic::Real;
    using Vector = std::array<Real, kMostLanes>;

    explicit Evaluation(const Graph& graph)
        : graph_(graph), order_(graph.live()), values_(graph.size()) {}

    /** Reads `source`, writes `destination`; both in real elements. */
    void run(const std::vector<Real>& source, const Real& scale, std::vector<Real>& destination) {
        for (NodeId id : order_) evaluate(id, source, scale, destination);
    }

  private:
    Vector& value(NodeId id) { return values_[static_cast<std::size_t>(id)]; }

    void evaluate(NodeId id, const std::vector<Real>& source, const Real& scale,
                  std::vector<Real>& destination) {
        const Node& n = graph_.node(id);
        const int lanes = lane_count(n.type);
        const int half = lanes / 2;
        Vector& out = value(id);
        const auto memory = [&](int lane) -> const Real& {
            return source.at(static_cast<std::size_t>(n.offset + lane));
        };
        const auto lane = [](int i) { return static_cast<std::size_t>(i); };
        switch (n.op) {
            case Op::Load:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = memory(i);
                break;
            case Op::LoadLow:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = i < half ? memory(i) : Real(0);
                break;
            case Op::LoadHigh:
                for (int i = 0; i < half; ++i) {
                    out[lane(i)] = value(n.a)[lane(i)];
                    out[lane(half + i)] = memory(i);
                }
                break;
            case Op::LoadScalar:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = i == 0 ? memory(0) : Real(0);
                break;
            case Op::Gather:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = source.at(n.selection[lane(i)]);
                break;
            case Op::Scale:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = scale;
                break;
            case Op::Constant: {
                const Lanes& constant = graph_.constants()[lane(n.constant)];
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] = Arithmetic::constant(n.type, constant[lane(i)]);
                break;
            }
            case Op::Zero:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = Real(0);
                break;
            case Op::Add:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] =
                        Arithmetic::add(n.type, value(n.a)[lane(i)], value(n.b)[lane(i)]);
                break;
            case Op::Sub:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] =
                        Arithmetic::sub(n.type, value(n.a)[lane(i)], value(n.b)[lane(i)]);
                break;
            case Op::Mul:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] =
                        Arithmetic::mul(n.type, value(n.a)[lane(i)], value(n.b)[lane(i)]);
                break;
            case Op::Flip:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] =
                        n.selection[lane(i)] ? Real(-value(n.a)[lane(i)]) : value(n.a)[lane(i)];
                break;
            case Op::Shuffle: {
                Vector picked;
                for (int i = 0; i < lanes; ++i) {
                    const int from = n.selection[lane(i)];
                    picked[lane(i)] =
                        from < lanes ? value(n.a)[lane(from)] : value(n.b)[lane(from - lanes)];
                }
                out = picked;
                break;
            }
            case Op::Spread:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = value(n.a)[0];
                break;
            case Op::Join: {
                const int part = lane_count(graph_.node(n.a).type);
                for (int i = 0; i < 2 * part; ++i)
                    out[lane(i)] = i < part ? value(n.a)[lane(i)] : value(n.b)[lane(i - part)];
                break;
            }
            case Op::Part:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] = value(n.a)[lane(n.offset * lanes + i)];
                break;
            case Op::Widen:
                for (int i = 0; i < lanes; ++i) out[lane(i)] = value(n.a)[lane(i)];
                break;
            case Op::Round:
                for (int i = 0; i < lanes; ++i)
                    out[lane(i)] = Arithmetic::round_to_binary32(value(n.a)[lane(i)]);
                break;
            case Op::Store:
            case Op::StoreLow:
            case Op::StoreHigh: {
                const int first = n.op == Op::StoreHigh ? half : 0;
                const int count = n.op == Op::Store ? lanes : half;
                for (int i = 0; i < count; ++i)
                    destination.at(lane(n.offset + i)) = value(n.a)[lane(first + i)];
                break;
            }
        }
    }

    const Graph& graph_;
    std::vector<NodeId> order_;
    std::vector<Vector> values_;
};

}  // namespace kernelgen
