#include "kernelgen/emission/emission.hpp"

#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <stdexcept>

#include "kernelgen/emission/spelling.hpp"
#include "kernelgen/schedule/order_check.hpp"

namespace kernelgen {
namespace {

std::string hexadecimal(double value) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%a", value);
    return text.data();
}

enum class Memory { Arrays, Places, Pieces };

class Emitter {
  public:
    Emitter(const Graph& graph, const Target& target, const std::string& rounding, Memory memory)
        : graph_(graph), target_(target), rounding_(rounding), memory_(memory) {
        join_halves();
    }

    EmittedBody run(const Order& order) {
        check_order(graph_, order);
        std::string statements;
        for (NodeId id : order) {
            if (!joined_.contains(id)) statements += "    " + statement(id) + "\n";
        }
        return {definitions(), statements};
    }

  private:
    /** Whether two halves from memory are one statement. */
    bool is_of_two_halves(const Node& n) const {
        return n.op == Op::LoadHigh && (memory_ == Memory::Pieces || is_wide(n.type));
    }

    /** The low half, where nobody else wants it, is no statement of its own then. */
    void join_halves() {
        std::set<NodeId> wanted;
        for (NodeId id : graph_.live()) {
            const Node& n = graph_.node(id);
            for (NodeId operand : operands(n)) {
                if (!is_of_two_halves(n))
                    wanted.insert(operand);
                else if (graph_.node(operand).op == Op::LoadLow)
                    joined_.insert(operand);
            }
        }
        for (NodeId id : wanted) joined_.erase(id);
    }

    std::string statement(NodeId id) {
        const Node& n = graph_.node(id);
        if (is_store(n.op)) return store(n);
        const std::string name = "v" + std::to_string(names_.size());
        std::string text =
            "const " + type_name(n.type, target_) + " " + name + " = " + expression(n) + ";";
        names_[id] = name;
        return text;
    }

    std::string store(const Node& n) {
        const std::string value = operand(n.a);
        if (memory_ == Memory::Places) return "y.store(" + place_of(n) + ", " + value + ");";
        if (memory_ == Memory::Pieces) {
            return (n.op == Op::StoreLow    ? "y.store_low("
                    : n.op == Op::StoreHigh ? "y.store_high("
                                            : "y.store(") +
                   std::to_string(n.offset) + ", " + value + ");";
        }
        if (lane_count(n.type) == 1) return "y[" + std::to_string(n.offset) + "] = " + value + ";";
        const std::string place = "y + " + std::to_string(n.offset);
        switch (n.op) {
            case Op::StoreLow:
                return "store_low(" + place + ", " + value + ");";
            case Op::StoreHigh:
                return "store_high(" + place + ", " + value + ");";
            default:
                return access(n) + "::store(" + place + ", " + value + ");";
        }
    }

    // A row that starts off a 16-byte boundary is moved unaligned on the aligned path as well.
    static std::string access(const Node& n) {
        return n.offset % lane_count(n.type) == 0 || is_wide(n.type) ? "Memory" : "Unaligned";
    }

    static std::string place_of(const Node& n) {
        if (lane_count(n.type) == 1 || (n.op != Op::Load && n.op != Op::Store))
            throw std::logic_error("only whole vectors have places");
        return std::to_string(n.offset / lane_count(n.type));
    }

    const Node& low_half_of(const Node& n) const {
        const Node& low = graph_.node(n.a);
        if (low.op != Op::LoadLow)
            throw std::logic_error("the low half of a joined vector is not from memory");
        return low;
    }

    std::string piecewise_load(const Node& n) {
        const std::string offset = std::to_string(n.offset) + ")";
        switch (n.op) {
            case Op::Load:
                return "x.load(" + offset;
            case Op::LoadLow:
                return "x.load_low(" + offset;
            case Op::LoadHigh:
                return "x.load_halves(" + std::to_string(low_half_of(n).offset) + ", " + offset;
            default:
                return "x.load_scalar(" + offset;
        }
    }

    std::string expression(const Node& n) {
        if (memory_ == Memory::Pieces && is_load(n.op)) return piecewise_load(n);
        const bool scalar = lane_count(n.type) == 1;
        const std::string place = "x + " + std::to_string(n.offset);
        switch (n.op) {
            case Op::Load:
                if (memory_ == Memory::Places) return "x.load(" + place_of(n) + ")";
                if (scalar) return "x[" + std::to_string(n.offset) + "]";
                return access(n) + "::load(" + place + ")";
            case Op::LoadLow:
                return "load_low(" + place + ")";
            case Op::LoadHigh:
                if (is_of_two_halves(n))
                    return access(n) + "::load_halves(x + " +
                           std::to_string(low_half_of(n).offset) + ", " + place + ")";
                return "load_high(" + operand(n.a) + ", " + place + ")";
            case Op::LoadScalar:
                return scalar_load(place, target_);
            case Op::Add:
            case Op::Sub:
            case Op::Mul:
            case Op::Shuffle: {
                // One after the other, since constants are numbered where they are first named.
                const std::string a = operand(n.a);
                const std::string b = operand(n.b);
                return n.op == Op::Shuffle ? shuffled(n, a, b, target_)
                                           : arithmetic(n, a, b, target_);
            }
            case Op::Flip: {
                const std::string a = operand(n.a);
                return flipped(n, a, sign_mask(n), target_);
            }
            case Op::Widen:
                return "static_cast<double>(" + operand(n.a) + ")";
            case Op::Round:
                return rounding_ + "(" + operand(n.a) + ")";
            default:
                throw std::logic_error("this node is not a statement");
        }
    }

    std::string operand(NodeId id) {
        const Node& n = graph_.node(id);
        if (n.op == Op::Scale) return "scale";
        if (n.op == Op::Zero && lane_count(n.type) == 1)
            return is_binary32(n.type) ? literal(0.0F) : literal(0.0);
        if (n.op == Op::Zero) return zero(n.type, target_);
        if (n.op == Op::Constant) return constant(n);
        return names_.at(id);
    }

    std::string constant(const Node& n) {
        const Lanes& lanes = graph_.constants()[static_cast<std::size_t>(n.constant)];
        if (lane_count(n.type) == 1) {
            return is_binary32(n.type) ? literal(lanes[0].to_binary32())
                                       : literal(lanes[0].to_binary64());
        }
        std::string values;
        for (const Exact& lane : lanes) {
            if (!values.empty()) values += ", ";
            values +=
                is_binary32(n.type) ? literal(lane.to_binary32()) : literal(lane.to_binary64());
        }
        return vector(n.type, values);
    }

    std::string sign_mask(const Node& n) {
        std::string values;
        for (int lane = 0; lane < lane_count(n.type); ++lane) {
            if (lane > 0) values += ", ";
            const bool change = n.selection[static_cast<std::size_t>(lane)] != 0;
            values +=
                is_binary32(n.type) ? literal(change ? -0.0F : 0.0F) : literal(change ? -0.0 : 0.0);
        }
        return vector(n.type, values);
    }

    std::string vector(Type type, const std::string& values) {
        if (!order_of_vectors_.empty() && type != vector_type_)
            throw std::logic_error("the constant vectors of a kernel are of one type");
        vector_type_ = type;
        auto [entry, fresh] = vectors_.try_emplace(values, vectors_.size());
        if (fresh) order_of_vectors_.push_back(values);
        return aligned_load(type, target_) + "(kConstants[" + std::to_string(entry->second) + "])";
    }

    std::string definitions() const {
        if (order_of_vectors_.empty()) return {};
        const bool single = is_binary32(vector_type_);
        std::string text = "alignas(" + std::to_string(byte_count(vector_type_)) + ") constexpr " +
                           (single ? "float" : "double") + " kConstants[][" +
                           std::to_string(lane_count(vector_type_)) + "] = {\n";
        for (const std::string& values : order_of_vectors_) text += "    {" + values + "},\n";
        return text + "};\n";
    }

    const Graph& graph_;
    const Target& target_;
    const std::string& rounding_;
    const Memory memory_;
    std::map<NodeId, std::string> names_;
    std::map<std::string, std::size_t> vectors_;
    std::vector<std::string> order_of_vectors_;
    Type vector_type_ = Type::Binary32x4;
    std::set<NodeId> joined_;
};

}  // namespace

EmittedBody emit(const Graph& graph, const Order& order, const Target& target,
                 const std::string& rounding) {
    return Emitter(graph, target, rounding, Memory::Arrays).run(order);
}

EmittedBody emit_between_places(const Graph& graph, const Order& order, const Target& target) {
    const std::string no_conversions;
    return Emitter(graph, target, no_conversions, Memory::Places).run(order);
}

EmittedBody emit_in_pieces(const Graph& graph, const Order& order) {
    constexpr Target kPieces{.name = "", .vector_registers = 0, .spelling = Spelling::Pieces};
    const std::string no_conversions;
    return Emitter(graph, kPieces, no_conversions, Memory::Pieces).run(order);
}

std::string literal(float value) {
    return hexadecimal(static_cast<double>(value)) + "f";
}
std::string literal(double value) {
    return hexadecimal(value);
}

}  // namespace kernelgen
