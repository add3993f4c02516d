#include "kernelgen/graph/graph.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kernelgen {

int lane_count(Type type) {
    switch (type) {
        case Type::Binary32x4:
            return 4;
        case Type::Binary64x2:
            return 2;
        case Type::Binary32x8:
            return 8;
        case Type::Binary64x4:
            return 4;
        case Type::Binary32x16:
            return 16;
        case Type::Binary64x8:
            return 8;
        default:
            return 1;
    }
}

Type laned(Type type) {
    switch (type) {
        case Type::Binary32:
            return Type::Binary32x4;
        case Type::Binary64:
        case Type::Binary64x2:
            return Type::Binary64x4;
        case Type::Binary32x4:
            return Type::Binary32x8;
        default:
            throw std::logic_error("no type is wider");
    }
}

Type precision_of(Type type) {
    return is_binary32(type) ? Type::Binary32 : Type::Binary64;
}

bool is_binary32(Type type) {
    return type == Type::Binary32 || type == Type::Binary32x4 || type == Type::Binary32x8 ||
           type == Type::Binary32x16;
}

int byte_count(Type type) {
    return lane_count(type) * (is_binary32(type) ? 4 : 8);
}

bool is_wide(Type type) {
    return byte_count(type) > 16;
}

bool is_load(Op op) {
    return op == Op::Load || op == Op::LoadLow || op == Op::LoadHigh || op == Op::LoadScalar ||
           op == Op::Gather;
}

bool is_store(Op op) {
    return op == Op::Store || op == Op::StoreLow || op == Op::StoreHigh;
}

bool is_placeless(Op op) {
    return op == Op::Constant || op == Op::Scale || op == Op::Zero;
}

Elements touched(const Node& node) {
    if (node.op == Op::Gather) {
        const auto [first, last] = std::minmax_element(
            node.selection.begin(), node.selection.begin() + lane_count(node.type));
        return {*first, *last + 1};
    }
    const int whole = lane_count(node.type);
    const bool half = node.op == Op::LoadLow || node.op == Op::LoadHigh ||
                      node.op == Op::StoreLow || node.op == Op::StoreHigh;
    const int count = node.op == Op::LoadScalar ? 1 : half ? whole / 2 : whole;
    return {node.offset, node.offset + count};
}

bool shares_elements(const Node& access, const Node& store) {
    const Elements written = touched(store);
    if (access.op != Op::Gather) return touched(access).overlap(written);
    return std::any_of(
        access.selection.begin(), access.selection.begin() + lane_count(access.type),
        [&](int element) { return written.first <= element && element < written.past; });
}

std::vector<NodeId> operands(const Node& node) {
    std::vector<NodeId> result;
    if (node.a != kNone) result.push_back(node.a);
    if (node.b != kNone) result.push_back(node.b);
    return result;
}

NodeId Graph::intern(const Node& node) {
    auto [entry, fresh] = known_.try_emplace(node, static_cast<NodeId>(nodes_.size()));
    if (fresh) nodes_.push_back(node);
    return entry->second;
}

Ref Graph::load(Type type, int offset) {
    return {intern({.op = Op::Load, .type = type, .offset = offset})};
}

Ref Graph::load_low(Type type, int offset) {
    return {intern({.op = Op::LoadLow, .type = type, .offset = offset})};
}

Ref Graph::load_high(Ref low, int offset) {
    const Type type = node(low.id).type;
    return {intern({.op = Op::LoadHigh, .type = type, .a = low.id, .offset = offset}),
            low.negative};
}

Ref Graph::load_scalar(Type type, int offset) {
    return {intern({.op = Op::LoadScalar, .type = type, .offset = offset})};
}

Ref Graph::gather(Type type, const Selection& elements) {
    return {intern({.op = Op::Gather, .type = type, .selection = elements})};
}

Ref Graph::scale(Type type) {
    return {intern({.op = Op::Scale, .type = type})};
}

Ref Graph::zero(Type type) {
    return {intern({.op = Op::Zero, .type = type})};
}

Ref Graph::constant(Type type, const Lanes& lanes) {
    std::string key;
    for (const Exact& lane : lanes) key += lane.key() + ' ';
    auto [entry, fresh] =
        known_constants_.try_emplace(key, static_cast<std::int32_t>(constants_.size()));
    if (fresh) constants_.push_back(lanes);
    return {intern({.op = Op::Constant, .type = type, .constant = entry->second})};
}

Ref Graph::add(Ref a, Ref b) {
    if (a.is_zero()) return b;
    if (b.is_zero()) return a;
    const Type type = node(a.id).type;
    if (a.negative == b.negative) {
        return {intern({.op = Op::Add,
                        .type = type,
                        .a = std::min(a.id, b.id),
                        .b = std::max(a.id, b.id)}),
                a.negative};
    }
    if (a.negative) std::swap(a, b);
    return {intern({.op = Op::Sub, .type = type, .a = a.id, .b = b.id})};
}

Ref Graph::mul(Ref a, Ref b) {
    if (a.is_zero() || b.is_zero()) return {};
    return {intern({.op = Op::Mul, .type = node(a.id).type, .a = a.id, .b = b.id}),
            a.negative != b.negative};
}

Ref Graph::mul(Ref a, const Lanes& lanes) {
    if (a.is_zero()) return a;
    const bool all_zero =
        std::all_of(lanes.begin(), lanes.end(), [](const Exact& c) { return c.is_zero(); });
    if (all_zero) return {};
    const bool all_one =
        std::all_of(lanes.begin(), lanes.end(), [](const Exact& c) { return c.is_one(); });
    if (all_one) return a;
    // A constant that is the same in all lanes is kept positive, its sign goes to the reference.
    const bool uniform = std::all_of(
        lanes.begin(), lanes.end(), [&](const Exact& c) { return c.key() == lanes.front().key(); });
    if (uniform && lanes.front().is_negative()) {
        return -mul(a, Lanes(lanes.size(), -lanes.front()));
    }
    return mul(a, constant(node(a.id).type, lanes));
}

Ref Graph::flip(Ref a, const Selection& lanes) {
    if (a.is_zero()) return a;
    return {intern({.op = Op::Flip, .type = node(a.id).type, .a = a.id, .selection = lanes}),
            a.negative};
}

Ref Graph::positive(Ref a) {
    if (!a.negative) return a;
    Selection all = {1, 1, 1, 1};
    std::fill_n(all.begin(), lane_count(node(a.id).type), std::uint8_t{1});
    return flip(-a, all);
}

Ref Graph::shuffle(Ref a, Ref b, const Selection& selection) {
    if (a.negative != b.negative)
        throw std::logic_error("a shuffle joins operands of one sign only");
    const Type type = node(a.id).type;
    if (lane_count(type) == 4 && selection == Selection{0, 1, 2, 3}) return a;
    return {intern({.op = Op::Shuffle, .type = type, .a = a.id, .b = b.id, .selection = selection}),
            a.negative};
}

Ref Graph::widen(Ref a) {
    const bool is_vector = lane_count(node(a.id).type) > 1;
    return {
        intern({.op = Op::Widen, .type = is_vector ? Type::Binary64x4 : Type::Binary64, .a = a.id}),
        a.negative};
}

Ref Graph::round(Ref a) {
    const bool is_vector = lane_count(node(a.id).type) > 1;
    return {
        intern({.op = Op::Round, .type = is_vector ? Type::Binary32x4 : Type::Binary32, .a = a.id}),
        a.negative};
}

Ref Graph::spread(Ref a) {
    return {intern({.op = Op::Spread, .type = laned(node(a.id).type), .a = a.id}), a.negative};
}

Ref Graph::join(Ref a, Ref b) {
    if (a.negative != b.negative) throw std::logic_error("a join takes operands of one sign only");
    return {intern({.op = Op::Join, .type = laned(node(a.id).type), .a = a.id, .b = b.id}),
            a.negative};
}

Ref Graph::part(Ref a, Type type, int index) {
    return {intern({.op = Op::Part, .type = type, .a = a.id, .offset = index}), a.negative};
}

Ref Graph::copied(const Graph& from, const Node& node, Ref a, Ref b) {
    switch (node.op) {
        case Op::Load:
            return load(node.type, node.offset);
        case Op::LoadLow:
            return load_low(node.type, node.offset);
        case Op::LoadHigh:
            return load_high(a, node.offset);
        case Op::LoadScalar:
            return load_scalar(node.type, node.offset);
        case Op::Gather:
            return gather(node.type, node.selection);
        case Op::Scale:
            return scale(node.type);
        case Op::Constant:
            return constant(node.type, from.constants()[static_cast<std::size_t>(node.constant)]);
        case Op::Zero:
            return zero(node.type);
        case Op::Add:
            return add(a, b);
        case Op::Sub:
            return sub(a, b);
        case Op::Mul:
            return mul(a, b);
        case Op::Flip:
            return flip(a, node.selection);
        case Op::Shuffle:
            return shuffle(a, b, node.selection);
        case Op::Spread:
            return spread(a);
        case Op::Join:
            return join(a, b);
        case Op::Part:
            return part(a, node.type, node.offset);
        case Op::Widen:
            return widen(a);
        case Op::Round:
            return round(a);
        case Op::Store:
        case Op::StoreLow:
        case Op::StoreHigh:
            break;
    }
    throw std::logic_error("a store is no value to copy");
}

void Graph::store_as(Op op, Ref value, int offset) {
    if (value.is_zero() || value.negative)
        throw std::logic_error("a store takes a positive value of the graph");
    stores_.push_back(
        intern({.op = op, .type = node(value.id).type, .a = value.id, .offset = offset}));
}

std::vector<NodeId> Graph::live() const {
    std::vector<bool> needed(nodes_.size(), false);
    for (NodeId store : stores_) needed[static_cast<std::size_t>(store)] = true;
    // Operands have smaller numbers than their users, so one backward pass is enough.
    for (std::size_t i = nodes_.size(); i-- > 0;) {
        if (!needed[i]) continue;
        for (NodeId operand : operands(nodes_[i])) needed[static_cast<std::size_t>(operand)] = true;
    }
    std::vector<NodeId> result;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (needed[i]) result.push_back(static_cast<NodeId>(i));
    }
    return result;
}

void Graph::return_to(const Mark& mark) {
    if (mark.nodes > nodes_.size() || mark.constants > constants_.size() ||
        mark.stores > stores_.size())
        throw std::invalid_argument("a graph returns to a state of its past only");
    while (nodes_.size() > mark.nodes) {
        known_.erase(nodes_.back());
        nodes_.pop_back();
    }
    const auto is_forgotten = [&](const auto& entry) {
        return static_cast<std::size_t>(entry.second) >= mark.constants;
    };
    std::erase_if(known_constants_, is_forgotten);
    constants_.resize(mark.constants);
    stores_.resize(mark.stores);
}

}  // namespace kernelgen
