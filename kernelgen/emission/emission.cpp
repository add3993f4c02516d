#include "kernelgen/emission/emission.hpp"

#include <algorithm>
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

/** Mixed: arrays read and written by vectors of 16 and of 32 bytes and by scalars. */
enum class Memory { Arrays, Places, Pieces, Mixed };

class Emitter {
  public:
    Emitter(const Graph& graph, const Target& target, const std::string& rounding, Memory memory)
        : graph_(graph), target_(target), rounding_(rounding), memory_(memory) {
        join_halves();
        find_types_of_constants();
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
                return in_core("store_low(") + place + ", " + value + ");";
            case Op::StoreHigh:
                return in_core("store_high(") + place + ", " + value + ");";
            default:
                return access(n) + "::store(" + place + ", " + value + ");";
        }
    }

    // A row that starts off a 16-byte boundary is moved unaligned on the aligned path as well.
    std::string access(const Node& n) const {
        if (memory_ == Memory::Mixed)
            return is_wide(n.type) ? wide_access(n.type) : "core::Unaligned";
        return n.offset % lane_count(n.type) == 0 || is_wide(n.type) ? "Memory" : "Unaligned";
    }

    /** Sources with a template over the memory access name what they use. */
    std::string in_core(const std::string& name) const {
        return memory_ == Memory::Mixed ? "core::" + name : name;
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
                return in_core("load_low(") + place + ")";
            case Op::LoadHigh:
                if (is_of_two_halves(n))
                    return access(n) + "::load_halves(x + " +
                           std::to_string(low_half_of(n).offset) + ", " + place + ")";
                return in_core("load_high(") + operand(n.a) + ", " + place + ")";
            case Op::LoadScalar:
                return scalar_load(place, target_);
            case Op::Gather:
                return gathered(n);
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
            case Op::Spread:
                return in_every_lane(n.type, operand(n.a));
            case Op::Join:
                return "core::joined(" + operand(n.a) + ", " + operand(n.b) + ")";
            case Op::Part:
                if (scalar) return operand(n.a) + "[" + std::to_string(n.offset) + "]";
                return "core::half<" + std::to_string(n.offset) + ">(" + operand(n.a) + ")";
            case Op::Widen:
                return (scalar ? "static_cast<double>(" : "core::widened(") + operand(n.a) + ")";
            case Op::Round:
                return (scalar ? rounding_ : "core::rounded") + "(" + operand(n.a) + ")";
            default:
                throw std::logic_error("this node is not a statement");
        }
    }

    std::string gathered(const Node& n) const {
        const auto end = n.selection.begin() + lane_count(n.type);
        if (std::all_of(n.selection.begin(), end,
                        [&](int element) { return element == n.selection[0]; }))
            return in_every_lane(n.type, "x[" + std::to_string(n.selection[0]) + "]");
        std::string places;
        for (auto element = n.selection.begin(); element != end; ++element)
            places += (places.empty() ? "x + " : ", x + ") + std::to_string(*element);
        return "core::gathered(" + places + ")";
    }

    std::string in_every_lane(Type type, const std::string& value) const {
        std::string lanes = value;
        for (int lane = 1; lane < lane_count(type); ++lane) lanes += ", " + value;
        return type_name(type, target_) + "{" + lanes + "}";
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

    void find_types_of_constants() {
        for (NodeId id : graph_.live()) {
            const Node& n = graph_.node(id);
            if ((n.op == Op::Constant || n.op == Op::Flip) && lane_count(n.type) > 1)
                tables_[n.type];
        }
    }

    /** Constants of each type are a table of its own; where there is but one type it needs no
     * name. */
    std::string table_name(Type type) const {
        if (tables_.size() == 1) return "kConstants";
        return std::string("kConstants") + (is_binary32(type) ? "32x" : "64x") +
               std::to_string(lane_count(type));
    }

    std::string vector(Type type, const std::string& values) {
        std::vector<std::string>& table = tables_[type];
        auto found = std::find(table.begin(), table.end(), values);
        if (found == table.end()) found = table.insert(found, values);
        return aligned_load(type, target_) + "(" + table_name(type) + "[" +
               std::to_string(found - table.begin()) + "])";
    }

    std::string definitions() const {
        std::string text;
        for (const auto& [type, table] : tables_) {
            if (table.empty()) continue;
            text += "alignas(" + std::to_string(byte_count(type)) + ") constexpr " +
                    (is_binary32(type) ? "float " : "double ") + table_name(type) + "[][" +
                    std::to_string(lane_count(type)) + "] = {\n";
            for (const std::string& values : table) text += "    {" + values + "},\n";
            text += "};\n";
        }
        return text;
    }

    const Graph& graph_;
    const Target& target_;
    const std::string& rounding_;
    const Memory memory_;
    std::map<NodeId, std::string> names_;
    std::map<Type, std::vector<std::string>> tables_;
    std::set<NodeId> joined_;
};

}  // namespace

EmittedBody emit(const Graph& graph, const Order& order, const Target& target,
                 const std::string& rounding) {
    return Emitter(graph, target, rounding, Memory::Arrays).run(order);
}

EmittedBody emit_mixed(const Graph& graph, const Order& order, const Target& target,
                       const std::string& rounding) {
    return Emitter(graph, target, rounding, Memory::Mixed).run(order);
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
