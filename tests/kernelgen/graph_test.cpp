#include "kernelgen/graph/graph.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "tests/kernelgen/support/random_graph.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::kNone;
using kernelgen::Lanes;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::Ref;
using kernelgen::Type;

constexpr Type kVector = Type::Binary32x4;

class GraphTest : public testing::Test {
  protected:
    const kernelgen::Node& node(Ref r) const { return g_.node(r.id); }
    static Lanes all(const Exact& c) { return Lanes(4, c); }

    Graph g_;
    Ref x_ = g_.load(kVector, 0);
    Ref y_ = g_.load(kVector, 4);
};

TEST_F(GraphTest, TheStructuralZeroIsNeutralInSumsAndDifferences) {
    const std::size_t before = g_.size();
    EXPECT_EQ(g_.add(x_, {}), x_);
    EXPECT_EQ(g_.add({}, x_), x_);
    EXPECT_EQ(g_.sub(x_, {}), x_);
    EXPECT_EQ(g_.sub({}, x_), -x_);
    EXPECT_EQ(g_.size(), before);
}

TEST_F(GraphTest, OneInAllLanesGivesTheOperand) {
    EXPECT_EQ(g_.mul(x_, all(Exact::rational(1))), x_);
    EXPECT_EQ(g_.mul(-x_, all(Exact::rational(1))), -x_);
}

TEST_F(GraphTest, MinusOneInAllLanesMovesToTheSign) {
    EXPECT_EQ(g_.mul(x_, all(Exact::rational(-1))), -x_);
}

TEST_F(GraphTest, ZeroInAllLanesGivesTheStructuralZero) {
    EXPECT_TRUE(g_.mul(x_, all(Exact())).is_zero());
}

TEST_F(GraphTest, OneOrZeroInSomeLanesOnlyIsAProduct) {
    for (long special : {0L, 1L}) {
        Lanes lanes = all(Exact::rational(special));
        lanes[3] = Exact::cosine(1, 5);
        const Ref product = g_.mul(x_, lanes);
        ASSERT_FALSE(product.is_zero()) << special;
        ASSERT_EQ(node(product).op, Op::Mul) << special;
        EXPECT_EQ(
            g_.constants()[static_cast<std::size_t>(g_.node(node(product).b).constant)][3].key(),
            lanes[3].key());
    }
}

TEST_F(GraphTest, ProductsWithTheStructuralZeroAreTheStructuralZero) {
    EXPECT_TRUE(g_.mul(Ref{}, x_).is_zero());
    EXPECT_TRUE(g_.mul(x_, Ref{}).is_zero());
    EXPECT_TRUE(g_.mul(Ref{}, all(Exact::cosine(1, 5))).is_zero());
    EXPECT_TRUE(g_.flip({}, {1, 1, 1, 1}).is_zero());
}

TEST_F(GraphTest, TheStructuralZeroHasNoSign) {
    EXPECT_EQ(-Ref{}, Ref{});
}

TEST_F(GraphTest, MinusTwiceIsTheSameReference) {
    EXPECT_EQ(-(-x_), x_);
    EXPECT_NE(-x_, x_);
}

TEST_F(GraphTest, ASumWithANegativeOperandIsADifference) {
    const Ref difference = g_.sub(x_, y_);
    EXPECT_EQ(node(difference).op, Op::Sub);
    EXPECT_EQ(node(difference).a, x_.id);
    EXPECT_EQ(node(difference).b, y_.id);
    EXPECT_EQ(g_.add(x_, -y_), difference);
    EXPECT_EQ(g_.add(-y_, x_), difference);
}

TEST_F(GraphTest, ADifferenceFromANegativeOperandIsANegativeSum) {
    const Ref result = g_.sub(-x_, y_);
    EXPECT_EQ(node(result).op, Op::Add);
    EXPECT_TRUE(result.negative);
    EXPECT_EQ(-result, g_.add(x_, y_));
}

TEST_F(GraphTest, SumsCommuteButDifferencesDoNot) {
    EXPECT_EQ(g_.add(x_, y_), g_.add(y_, x_));
    EXPECT_NE(g_.sub(x_, y_).id, g_.sub(y_, x_).id);
}

TEST_F(GraphTest, SignsOfAProductMultiply) {
    const Ref product = g_.mul(x_, y_);
    EXPECT_FALSE(product.negative);
    EXPECT_EQ(g_.mul(-x_, y_), -product);
    EXPECT_EQ(g_.mul(x_, -y_), -product);
    EXPECT_EQ(g_.mul(-x_, -y_), product);
}

TEST_F(GraphTest, AUniformNegativeConstantIsKeptPositive) {
    const Exact c = Exact::cosine(1, 5);
    EXPECT_EQ(g_.mul(x_, all(-c)), -g_.mul(x_, all(c)));
}

TEST_F(GraphTest, AConstantOfMixedSignsKeepsThem) {
    const Exact c = Exact::cosine(1, 5);
    const Ref product = g_.mul(x_, {c, -c, c, -c});
    EXPECT_FALSE(product.negative);
    EXPECT_NE(product.id, g_.mul(x_, all(c)).id);
}

TEST_F(GraphTest, EqualNodesAreOneNode) {
    const Exact c = Exact::cosine(1, 8);
    const Exact same = Exact::product({Exact::rational(1, 2), Exact::square_root(2)});
    const auto make = [&](const Exact& constant) {
        const Ref low = g_.load_low(kVector, 8);
        const Ref high = g_.load_high(low, 10);
        const Ref sum = g_.add(g_.mul(x_, all(constant)), g_.mul(high, g_.scale(kVector)));
        const Ref moved = g_.shuffle(sum, g_.flip(x_, {1, 0, 1, 0}), {1, 0, 7, 6});
        return g_.add(g_.add(moved, g_.zero(kVector)), g_.load_scalar(kVector, 3));
    };
    const Ref first = make(c);
    const std::size_t size = g_.size();
    EXPECT_EQ(make(same), first);
    EXPECT_EQ(g_.size(), size);
}

TEST_F(GraphTest, NodesThatDifferInOnePropertyAreTwo) {
    EXPECT_NE(g_.load(kVector, 0).id, g_.load(kVector, 8).id);
    EXPECT_NE(g_.load(kVector, 0).id, g_.load_low(kVector, 0).id);
    EXPECT_NE(g_.load(Type::Binary32, 0).id, g_.load(Type::Binary64, 0).id);
    EXPECT_NE(g_.flip(x_, {1, 0, 0, 0}).id, g_.flip(x_, {0, 1, 0, 0}).id);
    EXPECT_NE(g_.shuffle(x_, y_, {0, 1, 4, 5}).id, g_.shuffle(x_, y_, {0, 1, 5, 4}).id);
    EXPECT_NE(g_.shuffle(x_, y_, {0, 1, 4, 5}).id, g_.shuffle(y_, x_, {0, 1, 4, 5}).id);
}

TEST_F(GraphTest, AStoreOfANegativeValueIsRefused) {
    EXPECT_THROW(g_.store(-x_, 0), std::logic_error);
    EXPECT_THROW(g_.store_low(-x_, 0), std::logic_error);
    EXPECT_THROW(g_.store_high(-x_, 0), std::logic_error);
}

TEST_F(GraphTest, AStoreOfTheStructuralZeroIsRefused) {
    EXPECT_THROW(g_.store({}, 0), std::logic_error);
}

TEST_F(GraphTest, AShuffleOfMixedSignsIsRefused) {
    EXPECT_THROW(g_.shuffle(-x_, y_, {0, 1, 4, 5}), std::logic_error);
    EXPECT_THROW(g_.shuffle(x_, -y_, {0, 1, 4, 5}), std::logic_error);
}

TEST_F(GraphTest, AShuffleCarriesTheCommonSign) {
    EXPECT_EQ(g_.shuffle(-x_, -y_, {0, 1, 4, 5}), -g_.shuffle(x_, y_, {0, 1, 4, 5}));
}

TEST_F(GraphTest, TheIdentitySelectionGivesTheFirstOperand) {
    EXPECT_EQ(g_.shuffle(x_, y_, {0, 1, 2, 3}), x_);
}

TEST_F(GraphTest, SignsPassThroughFlipsConversionsAndHalfLoads) {
    EXPECT_TRUE(g_.flip(-x_, {1, 0, 0, 0}).negative);
    EXPECT_TRUE(g_.load_high(-g_.load_low(kVector, 0), 2).negative);
    const Ref scalar = g_.load(Type::Binary32, 0);
    EXPECT_TRUE(g_.widen(-scalar).negative);
    EXPECT_TRUE(g_.round(g_.widen(-scalar)).negative);
}

TEST_F(GraphTest, ConversionsChangeTheType) {
    const Ref wide = g_.widen(g_.load(Type::Binary32, 0));
    EXPECT_EQ(node(wide).type, Type::Binary64);
    EXPECT_EQ(node(g_.round(wide)).type, Type::Binary32);
}

TEST_F(GraphTest, LiveNodesAreThoseThatAStoreNeeds) {
    const Ref unused = g_.mul(x_, y_);
    const Ref sum = g_.add(x_, y_);
    g_.store(sum, 0);
    const auto live = g_.live();
    EXPECT_EQ(live, (std::vector<NodeId>{x_.id, y_.id, sum.id, g_.stores().front()}));
    EXPECT_EQ(std::count(live.begin(), live.end(), unused.id), 0);
}

TEST_F(GraphTest, LiveNodesStandAfterTheirOperands) {
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        const Graph g = kernelgen_test::random_graph(seed, 60);
        std::vector<bool> seen(g.size(), false);
        for (NodeId id : g.live()) {
            for (NodeId operand : kernelgen::operands(g.node(id)))
                EXPECT_TRUE(seen[static_cast<std::size_t>(operand)])
                    << "seed " << seed << ", node " << id << " before its operand " << operand;
            seen[static_cast<std::size_t>(id)] = true;
        }
        for (NodeId store : g.stores()) EXPECT_TRUE(seen[static_cast<std::size_t>(store)]);
    }
}

TEST_F(GraphTest, AReturnForgetsNodesAndStores) {
    g_.store(x_, 0);
    const Graph::Mark mark = g_.mark();
    const Ref sum = g_.add(x_, y_);
    g_.store(sum, 4);
    g_.return_to(mark);
    EXPECT_EQ(g_.size(), mark.nodes);
    EXPECT_EQ(g_.stores().size(), 1U);
    // A node that is still known under its old number would be handed out without being there.
    const Ref other = g_.mul(x_, y_);
    EXPECT_EQ(static_cast<std::size_t>(other.id), mark.nodes);
    const Ref again = g_.add(x_, y_);
    ASSERT_LT(static_cast<std::size_t>(again.id), g_.size());
    EXPECT_EQ(node(again).op, Op::Add);
}

TEST_F(GraphTest, AReturnForgetsTheConstantsMadeSince) {
    g_.mul(x_, all(Exact::cosine(1, 9)));
    const Graph::Mark mark = g_.mark();
    g_.mul(x_, all(Exact::cosine(1, 5)));
    g_.mul(x_, all(Exact::cosine(1, 9)));
    g_.return_to(mark);
    ASSERT_EQ(g_.constants().size(), 1U);
    EXPECT_EQ(g_.constants().front().front().key(), Exact::cosine(1, 9).key());
}

TEST_F(GraphTest, AGraphThatReturnedIsTheGraphThatWasNeverTried) {
    const auto build = [&](Graph& g) {
        const Ref x = g.load(Type::Binary32x4, 0);
        g.store(g.mul(g.mul(x, all(Exact::cosine(1, 7))), all(Exact::cosine(1, 5))), 0);
    };
    Graph plain;
    build(plain);
    Graph tried;
    const Graph::Mark mark = tried.mark();
    tried.store(tried.mul(tried.load(Type::Binary32x4, 4), all(Exact::cosine(1, 5))), 4);
    tried.return_to(mark);
    build(tried);
    ASSERT_EQ(tried.size(), plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_EQ(tried.node(static_cast<NodeId>(i)), plain.node(static_cast<NodeId>(i)))
            << "node " << i;
    ASSERT_EQ(tried.constants().size(), plain.constants().size());
    for (std::size_t i = 0; i < plain.constants().size(); ++i)
        EXPECT_EQ(tried.constants()[i].front().key(), plain.constants()[i].front().key());
}

TEST_F(GraphTest, AGraphDoesNotReturnToItsFuture) {
    const Graph::Mark before = g_.mark();
    g_.add(x_, y_);
    const Graph::Mark after = g_.mark();
    g_.return_to(before);
    EXPECT_THROW(g_.return_to(after), std::invalid_argument);
}

TEST_F(GraphTest, APositiveValueIsTurnedOverWhereItsReferenceIsNegative) {
    EXPECT_EQ(g_.positive(x_), x_);
    const Ref turned = g_.positive(-x_);
    EXPECT_FALSE(turned.negative);
    EXPECT_EQ(node(turned).op, Op::Flip);
    EXPECT_EQ(node(turned).selection, (kernelgen::Selection{1, 1, 1, 1}));
}

TEST_F(GraphTest, APositiveValueIsTurnedOverInAllLanesOfALongVector) {
    kernelgen::Selection all;
    all.fill(1);
    EXPECT_EQ(node(g_.positive(-g_.load(Type::Binary32x16, 0))).selection, all);
}

}  // namespace
