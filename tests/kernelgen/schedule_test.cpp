#include "kernelgen/schedule/schedule.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "targets/targets.hpp"
#include "tests/kernelgen/support/random_graph.hpp"

namespace {

using kernelgen::BisectionVariant;
using kernelgen::Graph;
using kernelgen::is_load;
using kernelgen::is_placeless;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::operands;
using kernelgen::Order;
using kernelgen::Ref;
using kernelgen::Type;

struct Method {
    std::string name;
    std::function<Order(const Graph&)> order;
    bool loads_late;  ///< each load stands just before its first use
};

std::vector<Method> methods() {
    std::vector<Method> all = {{"depth first", kernelgen::depth_first_order, false},
                               {"source", kernelgen::source_order, true}};
    for (bool outputs_first : {false, true}) {
        for (int leaf : {1, 2, 16}) {
            for (std::uint32_t shuffle : {0U, 1U, 7U}) {
                const BisectionVariant variant{outputs_first, leaf, shuffle};
                all.push_back(
                    {variant.to_string(),
                     [variant](const Graph& g) { return kernelgen::bisection_order(g, variant); },
                     true});
            }
        }
    }
    all.push_back({"winner",
                   [](const Graph& g) { return kernelgen::schedule(g, kernelgen::kIa32).order; },
                   false});
    return all;
}

/** Runs `check` for every method on graphs from tiny to larger than any leaf. */
void for_all_orders(const std::function<void(const Graph&, const Order&, const Method&)>& check) {
    for (int operations : {1, 5, 30, 200}) {
        for (std::uint32_t seed = 1; seed <= 8; ++seed) {
            const Graph g = kernelgen_test::random_graph(seed, operations);
            for (const Method& method : methods()) {
                SCOPED_TRACE(method.name + ", " + std::to_string(operations) +
                             " operations, seed " + std::to_string(seed));
                check(g, method.order(g), method);
            }
        }
    }
}

TEST(Schedule, EveryOrderHoldsEachNeededNodeOnce) {
    for_all_orders([](const Graph& g, const Order& order, const Method&) {
        std::vector<NodeId> needed;
        for (NodeId id : g.live()) {
            if (!is_placeless(g.node(id).op)) needed.push_back(id);
        }
        Order sorted = order;
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(sorted, needed);
    });
}

TEST(Schedule, EveryOrderHasOperandsBeforeTheirUsers) {
    for_all_orders([](const Graph& g, const Order& order, const Method&) {
        std::set<NodeId> placed;
        for (NodeId id : order) {
            for (NodeId operand : operands(g.node(id))) {
                EXPECT_TRUE(is_placeless(g.node(operand).op) || placed.contains(operand))
                    << "node " << id << " stands before its operand " << operand;
            }
            placed.insert(id);
        }
    });
}

bool uses(const Graph& g, NodeId user, NodeId load) {
    for (NodeId operand : operands(g.node(user))) {
        if (operand == load) return true;
        if (g.node(operand).op == Op::LoadHigh && uses(g, operand, load)) return true;
    }
    return false;
}

bool is_store(const Graph& g, NodeId id) {
    const Op op = g.node(id).op;
    return op == Op::Store || op == Op::StoreLow || op == Op::StoreHigh;
}

// Source and destination may be one array.
TEST(Schedule, NoLoadStandsBehindAStoreToItsElements) {
    Graph g;
    const Ref first = g.load(Type::Binary32x4, 0);
    const Ref scalar = g.load_scalar(Type::Binary32x4, 2);
    const Ref low = g.load_low(Type::Binary32x4, 4);
    g.store(g.add(first, first), 0);
    g.store(g.add(g.add(scalar, low), first), 4);
    for (const Method& method : methods()) {
        const Order order = method.order(g);
        const auto place = [&](NodeId id) { return std::find(order.begin(), order.end(), id); };
        EXPECT_LT(place(scalar.id), place(g.stores()[0])) << method.name;
        EXPECT_LT(place(low.id), place(g.stores()[1])) << method.name;
    }
}

// A loop whose arrays never meet may store before it loads.
TEST(Schedule, LoadsWaitForNoStoreWhereArraysAreApart) {
    Graph g;
    g.keep_arrays_apart();
    const Ref first = g.load(Type::Binary32x4, 0);
    const Ref second = g.load(Type::Binary32x4, 4);
    g.store(g.add(first, first), 4);
    g.store(g.add(second, second), 0);
    for (const Method& method : methods()) {
        const Order order = method.order(g);
        const auto place = [&](NodeId id) { return std::find(order.begin(), order.end(), id); };
        const auto store = std::min(place(g.stores()[0]), place(g.stores()[1]));
        EXPECT_LT(store, std::max(place(first.id), place(second.id))) << method.name;
    }
}

TEST(Schedule, LoadsStandJustBeforeTheirFirstUseOrAStoreToTheirElements) {
    for_all_orders([](const Graph& g, const Order& order, const Method& method) {
        if (!method.loads_late) return;
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (!is_load(g.node(order[i]).op)) continue;
            const auto next =
                std::find_if(order.begin() + static_cast<std::ptrdiff_t>(i) + 1, order.end(),
                             [&](NodeId id) { return !is_load(g.node(id).op); });
            ASSERT_NE(next, order.end()) << "load " << order[i] << " has no user";
            EXPECT_TRUE(uses(g, *next, order[i]) || is_store(g, *next))
                << "load " << order[i] << " stands before node " << *next;
        }
    });
}

TEST(Schedule, TheSameGraphGetsTheSameOrderTwice) {
    const Graph first = kernelgen_test::random_graph(3, 200);
    const Graph second = kernelgen_test::random_graph(3, 200);
    for (const Method& method : methods())
        EXPECT_EQ(method.order(first), method.order(second)) << method.name;
}

TEST(Schedule, TheVariantsOfTheBisectionAreDifferentOrders) {
    const Graph g = kernelgen_test::random_graph(3, 200);
    const Order plain = kernelgen::bisection_order(g);
    EXPECT_NE(kernelgen::bisection_order(g, {.outputs_first = true}), plain);
    EXPECT_NE(kernelgen::bisection_order(g, {.leaf = 64}), plain);
    EXPECT_NE(kernelgen::bisection_order(g, {.shuffle = 5}), plain);
}

TEST(Schedule, VariantsAreNamedByTheirDecisions) {
    std::set<std::string> names;
    const auto all = methods();
    for (const Method& method : all) names.insert(method.name);
    EXPECT_EQ(names.size(), all.size());
}

TEST(Schedule, TheSourceOrderKeepsTheOrderOfTheDescription) {
    Graph g;
    const Ref a = g.load(Type::Binary32x4, 0);
    const Ref b = g.load(Type::Binary32x4, 4);
    const Ref first = g.add(a, a);
    const Ref second = g.add(b, b);
    const Ref third = g.add(first, second);
    g.store(third, 0);
    EXPECT_EQ(kernelgen::source_order(g),
              (Order{a.id, first.id, b.id, second.id, third.id, g.stores().front()}));
}

TEST(Schedule, TheDepthFirstOrderFinishesOneStoreBeforeTheNext) {
    Graph g;
    const Ref a = g.load(Type::Binary32x4, 0);
    const Ref b = g.load(Type::Binary32x4, 4);
    const Ref first = g.add(a, a);
    const Ref second = g.add(b, b);
    g.store(second, 8);
    g.store(first, 12);
    EXPECT_EQ(kernelgen::depth_first_order(g),
              (Order{b.id, second.id, g.stores()[0], a.id, first.id, g.stores()[1]}));
}

/** What the register model predicts for the best order on the eight registers of the target. */
int stack_accesses(const Graph& g) {
    return kernelgen::schedule(g, kernelgen::kIa32).traffic.stack_accesses;
}

/** Sums of loads, all of which are needed again once their total is known. */
Graph values_alive_at_once(int values) {
    Graph g;
    std::vector<Ref> alive;
    Ref total;
    for (int i = 0; i < values; ++i) {
        alive.push_back(
            g.add(g.load(Type::Binary32x4, 8 * i), g.load(Type::Binary32x4, 8 * i + 4)));
        total = g.add(total, alive.back());
    }
    for (int i = 0; i < values; ++i)
        g.store(g.mul(alive[static_cast<std::size_t>(i)], total), 4 * i);
    return g;
}

TEST(Schedule, AChainNeedsNoStack) {
    Graph g;
    Ref value = g.load(Type::Binary32x4, 0);
    for (int i = 1; i < 100; ++i)
        value = g.add(g.mul(value, value), g.load(Type::Binary32x4, 4 * i));
    g.store(value, 0);
    EXPECT_EQ(stack_accesses(g), 0);
}

TEST(Schedule, FewValuesAliveNeedNoStack) {
    EXPECT_EQ(stack_accesses(values_alive_at_once(6)), 0);
}

// Their total lives as well, so ten values meet eight registers: two must be written and read back.
TEST(Schedule, NineValuesAliveOnEightRegistersNeedSomeStack) {
    EXPECT_GE(stack_accesses(values_alive_at_once(9)), 4);
}

TEST(Schedule, MoreValuesAliveNeedMoreStack) {
    int before = stack_accesses(values_alive_at_once(9));
    for (int values : {12, 16, 24}) {
        const int now = stack_accesses(values_alive_at_once(values));
        EXPECT_GT(now, before) << values << " values";
        before = now;
    }
}

TEST(Schedule, MoreRegistersNeedLessStack) {
    const Graph g = values_alive_at_once(12);
    kernelgen::Target wide = kernelgen::kIa32;
    wide.vector_registers = 16;
    EXPECT_GT(kernelgen::schedule(g, kernelgen::kIa32).traffic.stack_accesses, 0);
    EXPECT_EQ(kernelgen::schedule(g, wide).traffic.stack_accesses, 0);
}

TEST(Schedule, WhatIsNeededAgainIsCopiedWhereAnInstructionOverwritesAnOperand) {
    Graph g;
    const Ref a = g.add(g.load(Type::Binary32x4, 0), g.load(Type::Binary32x4, 4));
    const Ref b = g.add(g.load(Type::Binary32x4, 8), g.load(Type::Binary32x4, 12));
    g.store(g.add(a, b), 0);
    g.store(g.sub(a, b), 4);
    kernelgen::Target three = kernelgen::kIa32;
    three.operands = kernelgen::Operands::Registers;
    EXPECT_GT(kernelgen::schedule(g, kernelgen::kIa32).traffic.copies, 0);
    EXPECT_EQ(kernelgen::schedule(g, three).traffic.copies, 0);
    three.operands = kernelgen::Operands::OneInMemory;
    EXPECT_EQ(kernelgen::schedule(g, three).traffic.copies, 0);
}

// One register holds what comes from memory.
TEST(Schedule, OperandsThatMustBeRegistersLeaveFewerForValues) {
    const Graph g = values_alive_at_once(9);
    kernelgen::Target three = kernelgen::kIa32;
    three.operands = kernelgen::Operands::Registers;
    EXPECT_GT(kernelgen::schedule(g, three).traffic.stack_accesses, stack_accesses(g));
    three.operands = kernelgen::Operands::OneInMemory;
    EXPECT_EQ(kernelgen::schedule(g, three).traffic.stack_accesses, stack_accesses(g));
}

}  // namespace
