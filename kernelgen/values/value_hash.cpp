#include "kernelgen/values/value_hash.hpp"

#include <algorithm>
#include <utility>

#include "kernelgen/values/fnv.hpp"
#include "kernelgen/values/unfold.hpp"

namespace kernelgen {
namespace {

/** Bytes in an order that no machine decides. */
class Bytes {
  public:
    void take(std::uint64_t word, int count) {
        for (int i = 0; i < count; ++i) bytes_ += static_cast<char>((word >> (8 * i)) & 0xFF);
    }
    std::uint64_t hash() const { return fnv_1a(bytes_); }

  private:
    std::string bytes_;
};

class Hashing {
  public:
    Hashing(const ValueGraph& values, const Outputs& outputs)
        : outputs_(outputs), hashes_(values.size()) {
        // Operands stand before users.
        for (ValueId id : values.live(outputs))
            hashes_[static_cast<std::size_t>(id)] = hash_of(values.node(id));
    }

    std::uint64_t whole() const {
        Bytes bytes;
        for (const auto& [element, value] : outputs_) {
            bytes.take(static_cast<std::uint64_t>(element), 4);
            take(bytes, signed_hash(value));
        }
        return bytes.hash();
    }

  private:
    using SignedHash = std::pair<std::uint64_t, bool>;

    SignedHash signed_hash(SignedValue value) const {
        return {hashes_[static_cast<std::size_t>(value.id)], value.negative};
    }

    static void take(Bytes& bytes, const SignedHash& hash) {
        bytes.take(hash.second ? 1 : 0, 1);
        bytes.take(hash.first, 8);
    }

    std::uint64_t hash_of(const ValueNode& node) const {
        Bytes bytes;
        bytes.take(static_cast<std::uint64_t>(node.op), 1);
        bytes.take(is_binary32(node.precision) ? 4 : 8, 1);
        if (node.op == ValueOp::Input) bytes.take(static_cast<std::uint64_t>(node.place), 4);
        if (node.op == ValueOp::Constant) bytes.take(node.bits, 8);
        std::vector<SignedHash> hashes;
        for (SignedValue operand : operands(node)) hashes.push_back(signed_hash(operand));
        // Sums and products are commutative to the bit, and node numbers are to tell nothing.
        std::sort(hashes.begin(), hashes.end());
        for (const SignedHash& hash : hashes) take(bytes, hash);
        return bytes.hash();
    }

    const Outputs& outputs_;
    std::vector<std::uint64_t> hashes_;
};

}  // namespace

std::string hash_of_values(const ValueGraph& values, const Outputs& outputs) {
    return hexadecimal(Hashing(values, outputs).whole());
}

std::string hash_of_values(const Graph& graph) {
    ValueGraph values;
    const Outputs outputs = unfold(graph, values);
    return hash_of_values(values, outputs);
}

}  // namespace kernelgen
