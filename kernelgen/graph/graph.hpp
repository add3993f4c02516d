#pragma once

/**
 * @file
 * @brief Expression graph of one kernel: typed, hash-consed nodes.
 *
 * A node is a load, a constant, an arithmetic operation, a rearrangement of lanes, a conversion or
 * a store. Equal nodes are one node. A reference to a node carries a sign, so that a minus costs
 * nothing until a sum takes it up; no node negates. Memory is addressed in real elements.
 *
 * The frame's scale factor is a node of its own: it stands for a run-time value that is 1 in proofs
 * of the unscaled transform.
 */

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "kernelgen/graph/exact_constant.hpp"

namespace kernelgen {

enum class Type : std::uint8_t {
    Binary32,
    Binary64,
    Binary32x4,
    Binary64x2,
    Binary32x8,
    Binary64x4,
    Binary32x16,
    Binary64x8,
};

/** Of any type. */
inline constexpr int kMostLanes = 16;

int lane_count(Type type);
/** That of values of `type` side by side: four of scalars, two of vectors of 16 bytes. */
Type laned(Type type);
/** The type of a lane. */
Type precision_of(Type type);
bool is_binary32(Type type);
int byte_count(Type type);
/** Vectors of more than 16 bytes. */
bool is_wide(Type type);

enum class Op : std::uint8_t {
    Load,        ///< all lanes from consecutive elements
    LoadLow,     ///< the low half from memory, zeros above
    LoadHigh,    ///< low half of the operand, high half from memory
    LoadScalar,  ///< lane 0 from memory, zeros above
    Gather,      ///< each lane from an element of its own, which `selection` names
    Scale,       ///< the scale factor in every lane
    Constant,    ///< one exact constant a lane
    Zero,        ///< +0 in every lane
    Add,
    Sub,
    Mul,
    Flip,     ///< sign of some lanes changed (exclusive-or)
    Shuffle,  ///< lanes picked from two operands
    Spread,   ///< a scalar in every lane
    Join,     ///< two scalars or vectors side by side; lanes above hold nothing
    Part,     ///< one of the scalars or vectors that a vector is made of; `offset` tells which
    Widen,    ///< binary32 to binary64
    Round,    ///< binary64 to binary32
    Store,
    StoreLow,   ///< the low half
    StoreHigh,  ///< the high half
};

bool is_load(Op op);
bool is_store(Op op);
/** Whether nodes need no place of their own in an order: constants stand where they are used. */
bool is_placeless(Op op);

using NodeId = std::int32_t;
inline constexpr NodeId kNone = -1;

/** Where each lane of a shuffle comes from: lanes of the first operand, then those of the second.
 */
using Selection = std::array<std::uint8_t, kMostLanes>;

struct Node {
    Op op;
    Type type;
    NodeId a = kNone;
    NodeId b = kNone;
    std::int32_t offset = 0;     ///< memory, in real elements
    Selection selection = {};    ///< of a shuffle; of a flip, 1 in the lanes whose sign changes;
                                 ///< of a gather, the elements
    std::int32_t constant = -1;  ///< index into Graph::constants()

    auto operator<=>(const Node&) const = default;
};

/** A node with a sign. The structural zero (a value known to be absent) has no node. */
struct Ref {
    NodeId id = kNone;
    bool negative = false;

    bool is_zero() const { return id == kNone; }
    Ref operator-() const { return {id, id != kNone && !negative}; }
    auto operator<=>(const Ref&) const = default;
};

using Lanes = std::vector<Exact>;

class Graph {
  public:
    Ref load(Type type, int offset);
    Ref load_low(Type type, int offset);
    Ref load_high(Ref low, int offset);
    Ref load_scalar(Type type, int offset);
    /** Four lanes from these elements. */
    Ref gather(Type type, const Selection& elements);
    Ref scale(Type type);
    Ref zero(Type type);
    Ref constant(Type type, const Lanes& lanes);

    /** Sums with signs taken up: x + 0 is x, x + (-y) is a difference. */
    Ref add(Ref a, Ref b);
    Ref sub(Ref a, Ref b) { return add(a, -b); }
    Ref mul(Ref a, Ref b);
    /** Times a constant for each lane; 1 in all lanes gives the operand, 0 the structural zero. */
    Ref mul(Ref a, const Lanes& lanes);
    Ref flip(Ref a, const Selection& lanes);
    /** `a` without a sign of its reference, as stores take values: one that no sum has taken up is
     * applied to all lanes. */
    Ref positive(Ref a);
    /** Both operands must carry the same sign. The identity selection gives the first operand. */
    Ref shuffle(Ref a, Ref b, const Selection& selection);
    /** All lanes, which are one or four. */
    Ref widen(Ref a);
    Ref round(Ref a);
    // Between a type and `laned` of it. Operands of a join carry the same sign.
    Ref spread(Ref a);
    Ref join(Ref a, Ref b);
    Ref part(Ref a, Type type, int index);

    /** A node of another graph, of these operands; not a store. */
    Ref copied(const Graph& from, const Node& node, Ref a, Ref b);

    void store(Ref value, int offset) { store_as(Op::Store, value, offset); }
    void store_low(Ref value, int offset) { store_as(Op::StoreLow, value, offset); }
    void store_high(Ref value, int offset) { store_as(Op::StoreHigh, value, offset); }

    /** What is stored is never what is loaded, so that loads may stand behind any store. */
    void keep_arrays_apart() { arrays_are_apart_ = true; }
    bool arrays_are_apart() const { return arrays_are_apart_; }

    const Node& node(NodeId id) const { return nodes_[static_cast<std::size_t>(id)]; }
    const std::vector<NodeId>& stores() const { return stores_; }
    const std::vector<Lanes>& constants() const { return constants_; }
    std::size_t size() const { return nodes_.size(); }

    /** Nodes that a store needs, operands before users. */
    std::vector<NodeId> live() const;

    /** A state to return to. */
    struct Mark {
        std::size_t nodes;
        std::size_t constants;
        std::size_t stores;
    };
    Mark mark() const { return {nodes_.size(), constants_.size(), stores_.size()}; }
    /** Forgets whatever was made since: nodes, constants and stores, so that a trial leaves no
     * trace. Throws std::invalid_argument where that state is not one of the past. */
    void return_to(const Mark& mark);

  private:
    NodeId intern(const Node& node);
    void store_as(Op op, Ref value, int offset);

    std::vector<Node> nodes_;
    std::map<Node, NodeId> known_;
    std::vector<Lanes> constants_;
    std::map<std::string, std::int32_t> known_constants_;
    std::vector<NodeId> stores_;
    bool arrays_are_apart_ = false;
};

/** Real elements that a load or a store touches: [first, past). */
struct Elements {
    int first;
    int past;

    bool overlap(const Elements& other) const { return first < other.past && other.first < past; }
};
Elements touched(const Node& node);
/** Whether a load or a store touches an element that `store` writes. */
bool shares_elements(const Node& access, const Node& store);

/** Operands of a node, zero to two of them. */
std::vector<NodeId> operands(const Node& node);

}  // namespace kernelgen
