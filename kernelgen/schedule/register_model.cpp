#include "kernelgen/schedule/register_model.hpp"

#include <algorithm>
#include <deque>
#include <limits>
#include <map>
#include <set>

namespace kernelgen {
namespace {

class RegisterModel {
  public:
    RegisterModel(const Graph& graph, const std::vector<NodeId>& order, const Target& target)
        : graph_(graph),
          registers_(static_cast<std::size_t>(target.vector_registers)),
          operands_(target.operands) {
        for (std::size_t i = 0; i < order.size(); ++i) {
            for (NodeId operand : operands(graph.node(order[i]))) uses_[operand].push_back(i);
        }
    }

    RegisterTraffic run(const std::vector<NodeId>& order) {
        for (std::size_t i = 0; i < order.size(); ++i) execute(order[i], i);
        return traffic_;
    }

  private:
    bool lives_in_memory(NodeId id) const {
        const Op op = graph_.node(id).op;
        return op == Op::Constant || op == Op::Scale || op == Op::Zero || op == Op::Load;
    }

    std::size_t next_use(NodeId id) const {
        const auto found = uses_.find(id);
        if (found == uses_.end() || found->second.empty())
            return std::numeric_limits<std::size_t>::max();
        return found->second.front();
    }

    void make_room(const std::set<NodeId>& pinned) {
        if (held_.size() < registers_) return;
        NodeId victim = kNone;
        bool victim_clean = false;
        std::size_t victim_use = 0;
        for (NodeId id : held_) {
            if (pinned.contains(id)) continue;
            const std::size_t use = next_use(id);
            const bool clean = saved_.contains(id) || lives_in_memory(id);
            const bool better = victim == kNone || use > victim_use ||
                                (use == victim_use && clean && !victim_clean);
            if (better) {
                victim = id;
                victim_use = use;
                victim_clean = clean;
            }
        }
        if (!victim_clean && next_use(victim) != std::numeric_limits<std::size_t>::max()) {
            ++traffic_.stack_accesses;
            saved_.insert(victim);
        }
        held_.erase(victim);
    }

    void fetch(NodeId id, const std::set<NodeId>& pinned) {
        if (held_.contains(id)) return;
        if (!lives_in_memory(id)) ++traffic_.stack_accesses;
        make_room(pinned);
        held_.insert(id);
    }

    void execute(NodeId id, std::size_t position) {
        const Node& node = graph_.node(id);
        if (node.op == Op::Load) return;
        std::vector<NodeId> inputs = operands(node);
        std::set<NodeId> pinned(inputs.begin(), inputs.end());
        // One operand may stay in memory, be it an array, a constant or the stack.
        if (inputs.size() == 2 && held_.contains(inputs[1]) && !held_.contains(inputs[0]) &&
            (node.op == Op::Add || node.op == Op::Mul))
            std::swap(inputs[0], inputs[1]);
        if (!inputs.empty()) fetch(inputs[0], pinned);
        if (inputs.size() == 2 && operands_ == Operands::Registers)
            fetch(inputs[1], pinned);
        else if (inputs.size() == 2 && !held_.contains(inputs[1]) && !lives_in_memory(inputs[1]))
            ++traffic_.stack_accesses;
        for (NodeId operand : inputs) {
            auto& uses = uses_[operand];
            while (!uses.empty() && uses.front() <= position) uses.pop_front();
            if (uses.empty()) held_.erase(operand);
        }
        if (node.op == Op::Store || node.op == Op::StoreLow || node.op == Op::StoreHigh) return;
        const bool either = node.op == Op::Add || node.op == Op::Mul;
        const bool dies =
            !inputs.empty() && (!held_.contains(inputs[0]) ||
                                (either && inputs.size() == 2 && !held_.contains(inputs[1])));
        if (!inputs.empty() && !dies && operands_ == Operands::OverwritesFirst) ++traffic_.copies;
        make_room(pinned);
        held_.insert(id);
    }

    const Graph& graph_;
    std::size_t registers_;
    Operands operands_;
    std::map<NodeId, std::deque<std::size_t>> uses_;
    std::set<NodeId> held_;
    std::set<NodeId> saved_;
    RegisterTraffic traffic_;
};

}  // namespace

RegisterTraffic register_traffic(const Graph& graph, const std::vector<NodeId>& order,
                                 const Target& target) {
    return RegisterModel(graph, order, target).run(order);
}

}  // namespace kernelgen
