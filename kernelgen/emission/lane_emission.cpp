#include "kernelgen/emission/lane_emission.hpp"

#include <map>
#include <stdexcept>
#include <vector>

#include "kernelgen/emission/emission.hpp"
#include "kernelgen/schedule/order_check.hpp"

namespace kernelgen {
namespace {

class LaneEmitter {
  public:
    LaneEmitter(const Graph& graph, Type array_precision, LaneElements elements)
        : graph_(graph), array_precision_(array_precision), elements_(elements) {
        for (NodeId id : graph.live()) {
            for (NodeId operand : operands(graph.node(id))) users_[operand].push_back(id);
        }
    }

    std::string run(const Order& order) {
        check_order(graph_, order);
        for (NodeId id : order) {
            const Node& n = graph_.node(id);
            if (lane_count(n.type) != 1)
                throw std::logic_error("lanes are written of scalars only");
            if (n.op == Op::Store)
                store(n);
            else if (!is_factor(id) && !is_part_of_its_users(id))
                define(id);
        }
        if (!waiting_.empty())
            throw std::logic_error("an element is stored without its other part");
        return statements_;
    }

  private:
    bool has_real_elements() const { return elements_ == LaneElements::Real; }

    bool all_users_are(NodeId id, Op op) const {
        for (NodeId user : users_.at(id)) {
            if (graph_.node(user).op != op) return false;
        }
        return true;
    }

    /** Of real arrays, loads whose values are widened, and rounded values that are stored. */
    bool is_part_of_its_users(NodeId id) const {
        const Op op = graph_.node(id).op;
        return has_real_elements() && ((op == Op::Load && all_users_are(id, Op::Widen)) ||
                                       (op == Op::Round && all_users_are(id, Op::Store)));
    }

    void line(const std::string& statement) { statements_ += "    " + statement + ";\n"; }

    /** Rows are written as their halves, each a statement: compilers keep no structure of two
     * vectors in registers where there are thousands of them. */
    void define(NodeId id) {
        const Node& n = graph_.node(id);
        names_[id] = "v" + std::to_string(names_.size());
        if (!is_row(n)) {
            line("const Vector " + names_[id] + " = " + expression(n));
            return;
        }
        for (const Half half : {Half::Low, Half::High})
            line("const Half " + half_name(id, half) + " = " + row_expression(n, half));
    }

    void store(const Node& n) {
        const std::string place = std::to_string(n.offset);
        if (has_real_elements()) {
            const bool rounds = graph_.node(n.a).op == Op::Round && is_part_of_its_users(n.a);
            line("y.store(" + place + ", " + (rounds ? halves(graph_.node(n.a).a) : vector(n.a)) +
                 ")");
            return;
        }
        // A part waits for the other one of its element.
        const auto other = waiting_.find(n.offset ^ 1);
        if (other == waiting_.end()) {
            waiting_[n.offset] = n.a;
            return;
        }
        const bool is_real_part = n.offset % 2 == 0;
        line("y.store(" + std::to_string(n.offset / 2) + ", " +
             vector(is_real_part ? n.a : other->second) + ", " +
             vector(is_real_part ? other->second : n.a) + ")");
        waiting_.erase(other);
    }

    enum class Half { Low, High };

    /** Of binary64 beside binary32. */
    bool is_row(const Node& n) const { return n.type != array_precision_; }

    std::string half_name(NodeId id, Half half) const {
        return names_.at(id) + (half == Half::Low ? "_low" : "_high");
    }

    std::string expression(const Node& n) {
        switch (n.op) {
            case Op::Load:
                return "x.load(" + std::to_string(n.offset) + ")";
            case Op::Round:
                return "round(" + halves(n.a) + ")";
            default:
                return operation(
                    n, [this](NodeId id) { return vector(id); }, "factor");
        }
    }

    std::string row_expression(const Node& n, Half half) {
        const std::string end = half == Half::Low ? "low" : "high";
        if (n.op != Op::Widen)
            return operation(
                n, [this, half](NodeId id) { return half_of(id, half); }, "factor");
        const Node& narrow = graph_.node(n.a);
        if (narrow.op == Op::Load && is_part_of_its_users(n.a))
            return "x." + end + "(" + std::to_string(narrow.offset) + ")";
        return "widen_" + end + "(" + vector(n.a) + ")";
    }

    /** `name` tells how an operand stands there. */
    template <class Name>
    std::string operation(const Node& n, const Name& name, const std::string& factor) {
        // A number stands beside a vector, whose lanes it fills; two of them, of values that are
        // known to be zero, make no vector by themselves.
        const auto operand = [&](NodeId id) {
            return is_number(id) ? number(graph_.node(id)) : name(id);
        };
        const auto joined = [&](const char* sign) {
            return (is_number(n.b) ? name(n.a) : operand(n.a)) + sign + operand(n.b);
        };
        switch (n.op) {
            case Op::Add:
                return joined(" + ");
            case Op::Sub:
                return joined(" - ");
            case Op::Mul:
                if (is_factor(n.a)) return name(n.b) + " * " + factor;
                if (is_factor(n.b)) return name(n.a) + " * " + factor;
                return joined(" * ");
            case Op::Flip:
                return "-" + name(n.a);
            default:
                throw std::logic_error("this node has no lanes");
        }
    }

    bool is_factor(NodeId id) const {
        const Node& n = graph_.node(id);
        return n.op == Op::Scale || (n.op == Op::Widen && is_factor(n.a));
    }

    bool is_number(NodeId id) const {
        const Op op = graph_.node(id).op;
        return op == Op::Zero || op == Op::Constant;
    }

    std::string number(const Node& n) const {
        if (n.op == Op::Zero) return is_binary32(n.type) ? literal(0.0F) : literal(0.0);
        const Exact& value = graph_.constants()[static_cast<std::size_t>(n.constant)].front();
        return is_binary32(n.type) ? literal(value.to_binary32()) : literal(value.to_binary64());
    }

    std::string vector(NodeId id) const {
        return filled("Vector", graph_.node(id), names_.find(id), "");
    }

    std::string half_of(NodeId id, Half half) const {
        return filled("Half", graph_.node(id), names_.find(id),
                      half == Half::Low ? "_low" : "_high");
    }

    std::string halves(NodeId id) const {
        return half_of(id, Half::Low) + ", " + half_of(id, Half::High);
    }

    /** A node's name, or a vector whose lanes its number fills. */
    std::string filled(const std::string& type, const Node& n,
                       std::map<NodeId, std::string>::const_iterator name,
                       const std::string& end) const {
        if (n.op == Op::Zero) return type + "{}";
        if (n.op == Op::Constant) return "(" + type + "{} + " + number(n) + ")";
        return name->second + end;
    }

    const Graph& graph_;
    const Type array_precision_;
    const LaneElements elements_;
    std::map<NodeId, std::vector<NodeId>> users_;
    std::map<NodeId, std::string> names_;
    std::map<int, NodeId> waiting_;
    std::string statements_;
};

}  // namespace

std::string emit_in_lanes(const Graph& graph, const Order& order, Type array_precision,
                          LaneElements elements) {
    return LaneEmitter(graph, array_precision, elements).run(order);
}

}  // namespace kernelgen
