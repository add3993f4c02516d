/** @file @brief An order that would change a result is refused, and the message says why. */
#include "kernelgen/schedule/order_check.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "kernelgen/emission/emission.hpp"
#include "targets/targets.hpp"
#include "tests/kernelgen/support/random_graph.hpp"

namespace {

using kernelgen::Graph;
using kernelgen::Order;
using kernelgen::Ref;
using kernelgen::Type;

/** y[0..3] = x[0..3] + x[4..7], y[4..7] = x[0..3] - x[4..7]. */
struct Butterfly {
    Graph graph;
    Ref a = graph.load(Type::Binary32x4, 0);
    Ref b = graph.load(Type::Binary32x4, 4);
    Ref sum = graph.add(a, b);
    Ref difference = graph.sub(a, b);
    kernelgen::NodeId store_sum = stored(sum, 0);
    kernelgen::NodeId store_difference = stored(difference, 4);

    kernelgen::NodeId stored(Ref value, int offset) {
        graph.store(value, offset);
        return graph.stores().back();
    }
};

std::string refusal(const Graph& graph, const Order& order) {
    try {
        kernelgen::check_order(graph, order);
        return {};
    } catch (const std::logic_error& error) {
        return error.what();
    }
}

TEST(OrderCheck, OrdersOfTheSchedulersPass) {
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        const Graph g = kernelgen_test::random_graph(seed, 60);
        EXPECT_EQ(refusal(g, kernelgen::bisection_order(g)), "") << "seed " << seed;
        EXPECT_EQ(refusal(g, kernelgen::depth_first_order(g)), "") << "seed " << seed;
        EXPECT_EQ(refusal(g, kernelgen::source_order(g)), "") << "seed " << seed;
    }
}

TEST(OrderCheck, ALoadBehindAStoreToItsElementsIsRefused) {
    Graph g;
    const Ref a = g.load(Type::Binary32x4, 0);
    const Ref b = g.load(Type::Binary32x4, 2);
    g.store(a, 0);
    g.store(b, 4);
    const Order order = {a.id, g.stores()[0], b.id, g.stores()[1]};
    EXPECT_EQ(
        refusal(g, order),
        "node 1, a load of elements 2 to 5, stands behind node 2, a store of elements 0 to 3, "
        "which overwrites its elements");
    g.keep_arrays_apart();
    EXPECT_EQ(refusal(g, order), "");
}

TEST(OrderCheck, AGatheringStandsBeforeStoresToItsElementsAlone) {
    Graph g;
    const Ref gathered = g.gather(Type::Binary64x4, {0, 3, 5, 9});
    g.store(g.load(Type::Binary64, 20), 4);
    g.store(g.part(gathered, Type::Binary64, 0), 12);
    const Order between = kernelgen::source_order(g);
    EXPECT_EQ(refusal(g, between), "") << "element 4 stands between those that are gathered";
    const Ref last = g.load(Type::Binary64, 21);
    g.store(last, 5);
    Order behind = between;
    behind.insert(behind.begin(), {last.id, g.stores().back()});
    EXPECT_NE(refusal(g, behind).find("which overwrites its elements"), std::string::npos);
    for (const Order& order : {kernelgen::source_order(g), kernelgen::depth_first_order(g),
                               kernelgen::bisection_order(g)})
        EXPECT_EQ(refusal(g, order), "");
}

TEST(OrderCheck, TwoStoresToOneElementAreRefused) {
    Graph g;
    const Ref a = g.load(Type::Binary32x4, 0);
    g.store(a, 0);
    g.store_low(a, 2);
    EXPECT_NE(refusal(g, {a.id, g.stores()[0], g.stores()[1]}).find("overwrites"),
              std::string::npos);
}

TEST(OrderCheck, AnOperandBehindItsUserIsRefused) {
    const Butterfly k;
    EXPECT_NE(refusal(k.graph,
                      {k.a.id, k.sum.id, k.b.id, k.difference.id, k.store_sum, k.store_difference})
                  .find("stands before its operand"),
              std::string::npos);
}

TEST(OrderCheck, ANodeThatIsMissingOrDoubledIsRefused) {
    const Butterfly k;
    Order order = {k.a.id, k.b.id, k.sum.id, k.difference.id, k.store_sum, k.store_difference};
    EXPECT_EQ(refusal(k.graph, order), "");
    order.pop_back();
    EXPECT_NE(refusal(k.graph, order).find("is missing"), std::string::npos);
    order = {k.a.id, k.a.id};
    EXPECT_NE(refusal(k.graph, order).find("stands twice"), std::string::npos);
}

TEST(OrderCheck, NothingIsEmittedInAnOrderThatIsRefused) {
    const Butterfly k;
    EXPECT_THROW(kernelgen::emit(k.graph, {k.a.id}, kernelgen::kIa32), std::logic_error);
}

}  // namespace
