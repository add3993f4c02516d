#include "kernelgen/lanes/packs.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "kernelgen/lanes/operation_cost.hpp"
#include "kernelgen/lanes/pack_search.hpp"
#include "kernelgen/values/same_values.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Neighbourhood;
using kernelgen::Pack;
using kernelgen::Packs;
using kernelgen::PackSeeds;
using kernelgen::Ref;
using kernelgen::Spreading;
using kernelgen::Type;

/** Transforms of two points, (x0 + x1) c and (x0 - x1) c, one behind the other. */
class Butterflies : public testing::Test {
  protected:
    Graph g;
    Pack sums;
    Pack differences;
    Pack products;

    void add(int number) {
        for (int i = 0; i < number; ++i) {
            const Ref a = g.load(Type::Binary64, 2 * i);
            const Ref b = g.load(Type::Binary64, 2 * i + 1);
            const Ref sum = g.add(a, b);
            const Ref difference = g.sub(a, b);
            const Ref product = g.mul(difference, {Exact::rational(3 + i, 7)});
            g.store(sum, 2 * i);
            g.store(product, 2 * i + 1);
            sums.push_back(sum.id);
            differences.push_back(difference.id);
            products.push_back(product.id);
        }
    }
};

TEST_F(Butterflies, OfLikeTransformsTheSameNodesAreAlike) {
    add(4);
    const Neighbourhood nodes(g);
    EXPECT_TRUE(nodes.are_alike(sums[0], sums[3]));
    EXPECT_TRUE(nodes.are_alike(sums[0], differences[1])) << "a difference is a sum of its kind";
    EXPECT_FALSE(nodes.are_alike(sums[0], products[1]));
    EXPECT_EQ(nodes.colour(sums[0], 3), nodes.colour(sums[2], 3));
    EXPECT_NE(nodes.colour(sums[0], 3), nodes.colour(differences[0], 3))
        << "one is stored, the other one multiplied";
}

TEST_F(Butterflies, ANodeDependsOnWhatItIsComputedFrom) {
    add(2);
    const Neighbourhood nodes(g);
    EXPECT_TRUE(nodes.depends(products[0], differences[0]));
    EXPECT_FALSE(nodes.depends(products[0], differences[1]));
    EXPECT_FALSE(nodes.depends(differences[0], products[0]));
}

TEST_F(Butterflies, APackOfProductsBringsThatOfTheirOperands) {
    add(4);
    const Neighbourhood nodes(g);
    Packs packs(nodes);
    EXPECT_EQ(packs.grow(products, Spreading::Strict), 2);
    for (std::size_t lane = 0; lane < 4; ++lane)
        EXPECT_EQ(packs.place(differences[lane]).lane, static_cast<int>(lane));
    EXPECT_FALSE(packs.holds(sums[0]));
}

TEST_F(Butterflies, APackBringsThatOfItsUsers) {
    add(4);
    const Neighbourhood nodes(g);
    Packs packs(nodes);
    EXPECT_EQ(packs.grow(differences, Spreading::Strict), 2);
    EXPECT_TRUE(packs.holds(products[3]));
}

TEST_F(Butterflies, NodesThatDependOnEachOtherFitInNoPack) {
    add(2);
    const Ref again = g.mul(Ref{products[0]}, {Exact::rational(5)});
    g.store(again, 40);
    const Neighbourhood nodes(g);
    const Packs packs(nodes);
    EXPECT_FALSE(packs.fit({products[0], again.id}));
    EXPECT_TRUE(packs.fit({products[0], products[1]}));
    EXPECT_FALSE(packs.fit({products[0], products[0]}));
    EXPECT_FALSE(packs.fit({products[0], sums[1]}));
}

TEST_F(Butterflies, ANodeIsInOnePackOnly) {
    add(4);
    const Neighbourhood nodes(g);
    Packs packs(nodes);
    packs.grow({sums[0], sums[1]}, Spreading::Strict);
    EXPECT_FALSE(packs.fit({sums[1], sums[2]}));
    EXPECT_EQ(packs.grow({sums[1], sums[2]}, Spreading::Strict), 0);
}

TEST_F(Butterflies, PacksThatWaitForEachOtherCannotBeOrdered) {
    // b of a, and d of c: the packs (a, d) and (b, c) each hold what the other one needs.
    const auto product = [&](Ref x, long factor) { return g.mul(x, {Exact::rational(factor)}); };
    const Ref a = product(g.load(Type::Binary64, 0), 3);
    const Ref b = product(a, 5);
    const Ref c = product(g.load(Type::Binary64, 1), 7);
    const Ref d = product(c, 9);
    g.store(b, 0);
    g.store(d, 1);
    const Neighbourhood nodes(g);
    Packs straight(nodes);
    straight.grow({a.id, c.id}, Spreading::Strict);
    EXPECT_TRUE(straight.can_be_ordered());
    Packs crossed(nodes);
    crossed.grow({a.id, d.id}, Spreading::Strict);
    crossed.grow({b.id, c.id}, Spreading::Strict);
    EXPECT_FALSE(crossed.can_be_ordered());
}

TEST_F(Butterflies, TheSearchFindsLanesThatCostLess) {
    add(4);
    const Neighbourhood nodes(g);
    const PackSeeds seeds = kernelgen::search_packs(nodes, {});
    ASSERT_FALSE(seeds.is_empty());
    const Graph wide = kernelgen::laned_graph("butterflies", g, seeds.to_string());
    EXPECT_LT(kernelgen::operation_cost(wide), kernelgen::operation_cost(g));
}

TEST_F(Butterflies, TheSearchLeavesAGraphAloneThatHasNothingAlike) {
    const Ref a = g.load(Type::Binary64, 0);
    g.store(g.mul(g.add(a, g.load(Type::Binary64, 1)), {Exact::rational(1, 3)}), 0);
    EXPECT_TRUE(kernelgen::search_packs(Neighbourhood(g), {}).is_empty());
    EXPECT_TRUE(kernelgen::cheapest_packs(g, 3).empty());
}

TEST_F(Butterflies, NoMorePacksAreGivenThanAskedFor) {
    add(8);
    EXPECT_EQ(kernelgen::cheapest_packs(g, 1).size(), 1U);
}

TEST(PackSeeds, ReadBackAsTheyAreWritten) {
    for (const char* text : {"strict 3.17.25.40 9.12", "forward 0.1", "strict"})
        EXPECT_EQ(PackSeeds::of(text).to_string(), text);
}

TEST(PackSeeds, AreRefusedWhereTheyMakeNoSense) {
    EXPECT_THROW(PackSeeds::of("sideways 1.2"), std::invalid_argument);
    EXPECT_THROW(PackSeeds::of(""), std::invalid_argument);
    EXPECT_THROW(PackSeeds::of("strict 1.x"), std::invalid_argument);
    EXPECT_THROW(PackSeeds::of("strict 1.2z"), std::invalid_argument);
}

TEST_F(Butterflies, SeedsOfAnotherGraphAreRefused) {
    add(4);
    const Neighbourhood nodes(g);
    EXPECT_THROW(kernelgen::grown(nodes, PackSeeds::of("strict 0.2")), std::invalid_argument)
        << "a sum and a product";
    EXPECT_THROW(kernelgen::grown(nodes, PackSeeds::of("strict 0.99")), std::invalid_argument)
        << "there are not so many nodes";
}

}  // namespace
