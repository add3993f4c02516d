#include "kernelgen/lanes/laned_graph.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/lanes/pack_search.hpp"
#include "kernelgen/proof/bit_interpreter.hpp"
#include "kernelgen/values/same_values.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Neighbourhood;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::Pack;
using kernelgen::Packs;
using kernelgen::Ref;
using kernelgen::Spreading;
using kernelgen::Type;

constexpr Type kScalar = Type::Binary64;

/** A graph, nodes of it to pack, and what is laid out of them. */
class LanedGraph : public testing::Test {
  protected:
    Graph g;

    Ref x(int element) { return g.load(kScalar, element); }

    /** The graph in lanes, of the same values. */
    Graph laned(const std::vector<Pack>& seeds) {
        const Neighbourhood nodes(g);
        Packs packs(nodes);
        for (const Pack& seed : seeds) EXPECT_GT(packs.grow(seed, Spreading::Strict), 0);
        Graph result = kernelgen::laned_graph(packs);
        kernelgen::prove_same_values("the graph in lanes", result, "the graph", g);
        return result;
    }

    static int number_of(const Graph& graph, Op op, Type type) {
        int number = 0;
        for (NodeId id : graph.live()) {
            const Node& n = graph.node(id);
            number += n.op == op && n.type == type ? 1 : 0;
        }
        return number;
    }
};

TEST_F(LanedGraph, FourSumsOfAdjacentElementsAreOneSumBetweenWholeLoadsAndAWholeStore) {
    Pack sums;
    for (int i = 0; i < 4; ++i) {
        const Ref sum = g.add(x(i), x(4 + i));
        g.store(sum, i);
        sums.push_back(sum.id);
    }
    const Graph wide = laned({sums});
    const kernelgen::Counts c = kernelgen::count(wide, false);
    EXPECT_EQ(c.sums, 1);
    EXPECT_EQ(c.loads, 2);
    EXPECT_EQ(c.stores, 1);
    EXPECT_EQ(c.shuffles, 0);
}

TEST_F(LanedGraph, ElementsApartAreGathered) {
    Pack sums;
    for (int i = 0; i < 4; ++i) {
        const Ref sum = g.add(x(3 * i), x(20 + i));
        g.store(sum, i);
        sums.push_back(sum.id);
    }
    EXPECT_EQ(number_of(laned({sums}), Op::Gather, Type::Binary64x4), 1);
}

TEST_F(LanedGraph, ElementsBackwardsAreAWholeLoadTurnedRound) {
    Pack sums;
    for (int i = 0; i < 4; ++i) {
        const Ref sum = g.add(x(i), x(8 - i));
        g.store(sum, i);
        sums.push_back(sum.id);
    }
    const Graph wide = laned({sums});
    EXPECT_EQ(number_of(wide, Op::Load, Type::Binary64x4), 2);
    EXPECT_EQ(number_of(wide, Op::Shuffle, Type::Binary64x4), 1);
}

TEST_F(LanedGraph, SumsBesideDifferencesTakeOneFlip) {
    Pack pack;
    for (int i = 0; i < 4; ++i) {
        const Ref node = i % 2 == 0 ? g.add(x(i), x(4 + i)) : g.sub(x(i), x(4 + i));
        g.store(node, i);
        pack.push_back(node.id);
    }
    const Graph wide = laned({pack});
    EXPECT_EQ(number_of(wide, Op::Flip, Type::Binary64x4), 1);
    EXPECT_EQ(kernelgen::count(wide, false).sums + kernelgen::count(wide, false).differences, 1);
}

TEST_F(LanedGraph, SignsOfProductsGoIntoTheirConstants) {
    Pack pack;
    for (int i = 0; i < 4; ++i) {
        const Ref product = g.mul(x(4 + i), {Exact::rational(3 + i)});
        const Ref node = i % 2 == 0 ? g.add(x(i), product) : g.sub(x(i), product);
        g.store(node, i);
        pack.push_back(node.id);
    }
    EXPECT_EQ(number_of(laned({pack}), Op::Flip, Type::Binary64x4), 0);
}

TEST_F(LanedGraph, AZeroAmongTheConstantsTakesNoSign) {
    // x * 0 is minus zero for a negative x; a constant of zero cannot say its opposite.
    Pack pack;
    for (int i = 0; i < 2; ++i) {
        const Ref whole = g.load(Type::Binary32x4, 4 * i);
        const Ref product =
            g.mul(g.load(Type::Binary32x4, 8 + 4 * i),
                  {Exact::rational(0), Exact::rational(2), Exact::rational(3), Exact::rational(5)});
        const Ref node = i == 0 ? g.add(whole, product) : g.sub(whole, product);
        g.store(node, 4 * i);
        pack.push_back(node.id);
    }
    EXPECT_EQ(number_of(laned({pack}), Op::Flip, Type::Binary32x8), 1);
}

TEST_F(LanedGraph, ThreeNodesStandInFourLanesWithoutOtherValues) {
    Pack sums;
    for (int i = 0; i < 3; ++i) {
        const Ref sum = g.add(x(2 * i), x(10 + i));
        g.store(sum, 3 * i);
        sums.push_back(sum.id);
    }
    const Graph wide = laned({sums});
    for (NodeId id : wide.live()) {
        const Node& n = wide.node(id);
        if (n.op != Op::Gather) continue;
        EXPECT_EQ(n.selection[3], n.selection[2]) << "an element that no lane is about";
    }
    EXPECT_EQ(number_of(wide, Op::Gather, Type::Binary64x4), 2);
}

TEST_F(LanedGraph, AdjacentElementsOutOfTwoVectorsAreStoredTogether) {
    Pack sums;
    Pack differences;
    for (int i = 0; i < 4; ++i) {
        const Ref sum = g.add(x(i), x(4 + i));
        const Ref difference = g.sub(x(i), x(4 + i));
        g.store(sum, 8 * i);
        g.store(difference, 8 * i + 1);
        sums.push_back(sum.id);
        differences.push_back(difference.id);
    }
    const Graph wide = laned({sums, differences});
    EXPECT_EQ(number_of(wide, Op::StoreLow, Type::Binary64x4), 2);
    EXPECT_EQ(number_of(wide, Op::StoreHigh, Type::Binary64x4), 2);
    EXPECT_EQ(kernelgen::count(wide, false).shuffles, 2);
}

TEST_F(LanedGraph, VectorsOf16BytesAreJoinedToThoseOf32) {
    Pack sums;
    for (int i = 0; i < 2; ++i) {
        const Ref sum = g.add(g.load(Type::Binary64x2, 2 * i), g.load(Type::Binary64x2, 4 + 2 * i));
        g.store(sum, 2 * i);
        sums.push_back(sum.id);
    }
    const Graph wide = laned({sums});
    EXPECT_EQ(number_of(wide, Op::Add, Type::Binary64x4), 1);
    EXPECT_EQ(number_of(wide, Op::Load, Type::Binary64x4), 2);
    EXPECT_EQ(number_of(wide, Op::Store, Type::Binary64x4), 1);
}

TEST_F(LanedGraph, ConversionsAreOfWholeVectors) {
    Pack rows;
    for (int i = 0; i < 4; ++i) {
        const Ref row = g.mul(g.widen(g.load(Type::Binary32, 5 * i)), {Exact::rational(1, 3)});
        const Ref rounded = g.round(row);
        g.store(rounded, 2 * i);
        rows.push_back(row.id);
    }
    const Graph wide = laned({rows});
    EXPECT_EQ(number_of(wide, Op::Widen, Type::Binary64x4), 1);
    EXPECT_EQ(number_of(wide, Op::Round, Type::Binary32x4), 1);
    EXPECT_EQ(number_of(wide, Op::Round, Type::Binary32), 0);
}

TEST_F(LanedGraph, TheScaleFactorStandsInAllLanes) {
    Pack products;
    for (int i = 0; i < 4; ++i) {
        const Ref product = g.mul(x(i), g.scale(kScalar));
        g.store(product, i);
        products.push_back(product.id);
    }
    EXPECT_EQ(number_of(laned({products}), Op::Spread, Type::Binary64x4), 1);
}

TEST_F(LanedGraph, ItsBitsAreThoseOfTheGraph) {
    Pack sums;
    for (int i = 0; i < 4; ++i) {
        const Ref product = g.mul(x(7 * i % 12), {Exact::rational(i + 2, 3)});
        const Ref sum = i < 2 ? g.sub(product, x(i)) : g.add(x(i), product);
        g.store(g.mul(sum, g.scale(kScalar)), 5 * i);
        sums.push_back(sum.id);
    }
    const Graph wide = laned({sums});
    std::vector<double> source;
    for (int i = 0; i < 32; ++i) source.push_back(1.0 / (i + 1));
    EXPECT_EQ(kernelgen::interpret(wide, source, 0.7, 16),
              kernelgen::interpret(g, source, 0.7, 16));
}

}  // namespace
