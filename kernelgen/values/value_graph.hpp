#pragma once

/**
 * @file
 * @brief What a kernel computes, apart from where it does so: scalar nodes, one a rounded value.
 *
 * Nodes are hash-consed, so that within one value graph equal values are one node: two kernels
 * whose outputs are the same nodes give the same bits for all inputs, whatever their lanes, their
 * order and their targets. (Which NaN comes out of several is the one thing that the order of
 * operands decides.)
 *
 * Nodes are brought to one form by identities that keep every bit of IEEE 754 arithmetic in
 * round-to-nearest, and by no other ones: a sign moves out of products, conversions and constants
 * into the reference, x * 1 is x, and the operands of sums and products stand in a fixed order. No
 * sign moves out of a sum: a - b and -(b - a), -(a + b) and -a - b are zeros of different signs
 * where they are zero. x * 0 stays, since x may be infinite.
 */

#include <compare>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace kernelgen {

enum class ValueOp : std::uint8_t {
    Input,     ///< of a place, as the caller numbers them
    Scale,     ///< the scale factor
    Constant,  ///< known by its rounded value, whatever expression it came from; +0 is one
    Add,       ///< of two operands with signs, so that a difference is a sum
    Mul,
    Widen,  ///< binary32 to binary64
    Round,  ///< binary64 to binary32
};

using ValueId = std::int32_t;

/** A node of a value graph with a sign. */
struct SignedValue {
    ValueId id = -1;
    bool negative = false;

    SignedValue operator-() const { return {id, !negative}; }
    auto operator<=>(const SignedValue&) const = default;
};

struct ValueNode {
    ValueOp op;
    Type precision;  ///< Binary32 or Binary64
    SignedValue a = {};
    SignedValue b = {};
    std::int32_t place = 0;  ///< of an input
    std::uint64_t bits = 0;  ///< of a constant, which is not negative, as a binary64 value

    bool operator==(const ValueNode&) const = default;
};

/** What a kernel writes, by element of its destination. */
using Outputs = std::map<int, SignedValue>;

/** Operations throw std::logic_error where the precisions of operands do not suit them. */
class ValueGraph {
  public:
    SignedValue input(Type precision, int place);
    SignedValue scale(Type precision);
    /** `value` is a number of `precision`. */
    SignedValue constant(Type precision, double value);
    SignedValue zero(Type precision) { return constant(precision, 0); }
    SignedValue add(SignedValue a, SignedValue b);
    SignedValue mul(SignedValue a, SignedValue b);
    SignedValue widen(SignedValue a);
    SignedValue round(SignedValue a);

    const ValueNode& node(ValueId id) const { return nodes_[static_cast<std::size_t>(id)]; }
    std::size_t size() const { return nodes_.size(); }

    /** Nodes that outputs need, operands before users. */
    std::vector<ValueId> live(const Outputs& outputs) const;

  private:
    struct Hash {
        std::size_t operator()(const ValueNode& node) const;
    };

    SignedValue intern(const ValueNode& node);
    SignedValue convert(ValueOp op, SignedValue a, Type from, Type to);
    Type common_precision(SignedValue a, SignedValue b) const;
    bool is_one(SignedValue value) const;

    std::vector<ValueNode> nodes_;
    std::unordered_map<ValueNode, ValueId, Hash> known_;
};

/** Operands of a node, zero to two of them. */
std::vector<SignedValue> operands(const ValueNode& node);

/** A constant's value. */
double constant_of(const ValueNode& node);

}  // namespace kernelgen
