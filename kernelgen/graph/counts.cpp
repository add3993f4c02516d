#include "kernelgen/graph/counts.hpp"

namespace kernelgen {

Counts count(const Graph& graph, bool element_is_binary32) {
    Counts c;
    for (NodeId id : graph.live()) {
        const Node& n = graph.node(id);
        const bool wide = element_is_binary32 && !is_binary32(n.type);
        switch (n.op) {
            case Op::Add:
                ++(wide ? c.wide_sums : c.sums);
                break;
            case Op::Sub:
                ++(wide ? c.wide_differences : c.differences);
                break;
            case Op::Mul:
                ++(wide ? c.wide_products : c.products);
                break;
            case Op::Flip:
                ++c.flips;
                break;
            case Op::Shuffle:
            case Op::Spread:
            case Op::Join:
            case Op::Part:
                ++c.shuffles;
                break;
            case Op::LoadHigh:
                ++c.shuffles;
                ++c.loads;
                break;
            case Op::Load:
            case Op::LoadLow:
            case Op::LoadScalar:
            case Op::Gather:
                ++c.loads;
                break;
            case Op::Widen:
            case Op::Round:
                ++c.conversions;
                break;
            case Op::Store:
            case Op::StoreLow:
            case Op::StoreHigh:
                ++c.stores;
                break;
            case Op::Constant:
                ++c.constants;
                break;
            case Op::Scale:
            case Op::Zero:
                break;
        }
    }
    return c;
}

}  // namespace kernelgen
