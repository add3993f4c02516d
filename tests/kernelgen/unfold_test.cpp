#include "kernelgen/values/unfold.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/kernelgen/support/random_graph.hpp"
#include "tests/kernelgen/support/unfolded_bits.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Outputs;
using kernelgen::Ref;
using kernelgen::SignedValue;
using kernelgen::Type;
using kernelgen::unfold;
using kernelgen::ValueGraph;

constexpr Type kFour = Type::Binary32x4;
constexpr Type kTwo = Type::Binary64x2;

/** A graph, its outputs, and what is expected of them. */
class Unfolded : public testing::Test {
  protected:
    Graph g;
    ValueGraph values;

    SignedValue x(int place) { return values.input(Type::Binary32, place); }
    SignedValue wide(int place) { return values.input(Type::Binary64, place); }
    SignedValue zero() { return values.zero(Type::Binary32); }
    SignedValue scale() { return values.scale(Type::Binary32); }
    SignedValue constant(float value) { return values.constant(Type::Binary32, value); }

    /** By element, from 0 on. */
    void expect(const std::vector<SignedValue>& wanted) {
        Outputs outputs;
        for (std::size_t i = 0; i < wanted.size(); ++i) outputs[static_cast<int>(i)] = wanted[i];
        EXPECT_EQ(unfold(g, values), outputs);
    }
};

TEST_F(Unfolded, LoadsAreAnInputALane) {
    g.store(g.load(kFour, 4), 0);
    expect({x(4), x(5), x(6), x(7)});
}

TEST_F(Unfolded, LoadsHaveThePrecisionOfTheirType) {
    g.store(g.load(kTwo, 1), 0);
    g.store(g.load(Type::Binary64, 7), 2);
    expect({wide(1), wide(2), wide(7)});
}

TEST_F(Unfolded, HalfLoadsAreZeroAboveTheirHalf) {
    g.store(g.load_low(kFour, 2), 0);
    g.store(g.load_scalar(kFour, 5), 4);
    expect({x(2), x(3), zero(), zero(), x(5), zero(), zero(), zero()});
}

TEST_F(Unfolded, HighLoadsKeepTheLowHalf) {
    g.store(g.load_high(g.load_low(kFour, 2), 6), 0);
    g.store(g.load_high(g.load(kFour, 8), 0), 4);
    expect({x(2), x(3), x(6), x(7), x(8), x(9), x(0), x(1)});
}

TEST_F(Unfolded, HalfLoadsOfTwoLanesMoveOneElement) {
    g.store(g.load_high(g.load_low(kTwo, 5), 3), 0);
    expect({wide(5), wide(3)});
}

TEST_F(Unfolded, HalfStoresWriteTheirHalf) {
    const Ref v = g.load(kFour, 0);
    g.store_low(v, 2);
    g.store_high(v, 0);
    expect({x(2), x(3), x(0), x(1)});
}

TEST_F(Unfolded, HalfStoresOfTwoLanesWriteOneElement) {
    const Ref v = g.load(kTwo, 0);
    g.store_low(v, 1);
    g.store_high(v, 0);
    expect({wide(1), wide(0)});
}

TEST_F(Unfolded, TheScaleFactorIsOneValueForAllLanes) {
    g.store(g.scale(kFour), 0);
    expect({scale(), scale(), scale(), scale()});
}

TEST_F(Unfolded, ZerosAreConstants) {
    g.store(g.zero(kFour), 0);
    expect({zero(), zero(), zero(), zero()});
}

TEST_F(Unfolded, ConstantsAreRoundedToTheirTypeALane) {
    const Exact third = Exact::rational(1, 3);
    g.store(g.constant(kFour, {third, -third, Exact::rational(0), Exact::rational(1)}), 0);
    expect({constant(1.0F / 3), -constant(1.0F / 3), zero(), constant(1)});
    Graph doubled;
    doubled.store(doubled.constant(Type::Binary64, {third}), 0);
    EXPECT_EQ(unfold(doubled, values), (Outputs{{0, values.constant(Type::Binary64, 1.0 / 3)}}));
}

TEST_F(Unfolded, ConstantsOfTwoExpressionsThatRoundAlikeAreOneValue) {
    const Exact half = Exact::rational(1, 2);
    const Exact nearby = Exact::sum({half, Exact::rational(1, 1L << 30)});
    ASSERT_NE(half.key(), nearby.key());
    g.store(g.mul(g.load(Type::Binary32, 0), Lanes{half}), 0);
    g.store(g.mul(g.load(Type::Binary32, 0), Lanes{nearby}), 1);
    const SignedValue product = values.mul(x(0), constant(0.5F));
    expect({product, product});
}

TEST_F(Unfolded, SumsAreOneALane) {
    g.store(g.add(g.load(kFour, 0), g.load(kFour, 4)), 0);
    expect({values.add(x(0), x(4)), values.add(x(1), x(5)), values.add(x(2), x(6)),
            values.add(x(3), x(7))});
}

TEST_F(Unfolded, DifferencesAreSumsWithTheSignOfTheSecondOperand) {
    g.store(g.sub(g.load(Type::Binary32, 0), g.load(Type::Binary32, 1)), 0);
    g.store(g.sub(g.load(Type::Binary32, 1), g.load(Type::Binary32, 0)), 1);
    expect({values.add(x(0), -x(1)), values.add(x(1), -x(0))});
}

TEST_F(Unfolded, ProductsTakeTheConstantOfTheirLane) {
    g.store(g.mul(g.load(kFour, 0),
                  {Exact::rational(1), Exact::rational(1, 2), Exact::rational(-1), Exact()}),
            0);
    expect({x(0), values.mul(x(1), constant(0.5F)), -x(2), values.mul(x(3), zero())});
}

TEST_F(Unfolded, FlipsAreSigns) {
    g.store(g.flip(g.load(kFour, 0), {1, 0, 0, 1}), 0);
    expect({-x(0), x(1), x(2), -x(3)});
}

TEST_F(Unfolded, SumsOfFlippedValuesAreDifferences) {
    g.store(g.add(g.load(kFour, 0), g.flip(g.load(kFour, 4), {1, 0, 1, 0})), 0);
    expect({values.add(x(0), -x(4)), values.add(x(1), x(5)), values.add(x(2), -x(6)),
            values.add(x(3), x(7))});
}

TEST_F(Unfolded, ShufflesAreNothing) {
    g.store(g.shuffle(g.load(kFour, 0), g.load(kFour, 4), {3, 4, 7, 0}), 0);
    expect({x(3), x(4), x(7), x(0)});
}

TEST_F(Unfolded, ShufflesOfTwoLanesPickFromBothOperands) {
    g.store(g.shuffle(g.load(kTwo, 0), g.load(kTwo, 2), {1, 2, 0, 0}), 0);
    expect({wide(1), wide(2)});
}

TEST_F(Unfolded, ConversionsStay) {
    g.store(g.round(g.mul(g.widen(g.load(Type::Binary32, 0)), Lanes{Exact::rational(1, 3)})), 0);
    expect(
        {values.round(values.mul(values.widen(x(0)), values.constant(Type::Binary64, 1.0 / 3)))});
}

TEST_F(Unfolded, TheSourceMayHoldAnyValues) {
    g.store(g.load(Type::Binary32, 3), 0);
    const SignedValue sum = values.add(x(0), x(1));
    const Outputs outputs = unfold(g, values, [&](int element, Type precision) {
        EXPECT_EQ(element, 3);
        EXPECT_EQ(precision, Type::Binary32);
        return -sum;
    });
    EXPECT_EQ(outputs, (Outputs{{0, -sum}}));
}

TEST_F(Unfolded, OnlyLanesThatAreStoredAreValues) {
    const Ref v = g.load(kFour, 0);
    const Ref sum = g.add(v, g.shuffle(v, v, {1, 0, 7, 6}));
    g.store_low(sum, 0);
    unfold(g, values);
    // Two inputs, which meet in one sum.
    EXPECT_EQ(values.size(), 3U);
}

TEST_F(Unfolded, AnElementThatIsWrittenTwiceIsRefused) {
    g.store(g.load(kFour, 0), 0);
    g.store_low(g.load(kFour, 4), 2);
    EXPECT_THROW(unfold(g, values), std::logic_error);
}

TEST_F(Unfolded, ALaneThatNoConstantIsGivenForIsRefusedWhereItIsRead) {
    const Ref v =
        g.mul(g.load(kFour, 0), g.constant(kFour, {Exact::rational(2), Exact::rational(3)}));
    g.store_low(v, 0);
    EXPECT_NO_THROW(unfold(g, values));
    g.store_high(v, 2);
    EXPECT_THROW(unfold(g, values), std::logic_error);
}

TEST_F(Unfolded, ALaneThatAnOperandDoesNotHaveIsRefused) {
    g.store(g.add(g.load(kFour, 0), g.load(Type::Binary32, 4)), 0);
    EXPECT_THROW(unfold(g, values), std::logic_error);
}

TEST(UnfoldedRandomGraphs, GiveTheBitsOfTheLaidOutOnes) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        kernelgen_test::expect_unfolded_bits(kernelgen_test::random_graph(seed, 60),
                                             Type::Binary32);
    }
}

TEST_F(Unfolded, GatheredLanesAreTheElementsThatAreNamed) {
    g.store(g.gather(kFour, {9, 2, 2, 0}), 0);
    expect({x(9), x(2), x(2), x(0)});
}

TEST_F(Unfolded, AScalarStandsInEveryLaneItIsSpreadOver) {
    g.store(g.spread(g.load(Type::Binary32, 3)), 0);
    expect({x(3), x(3), x(3), x(3)});
}

TEST_F(Unfolded, JoinedVectorsStandSideBySideAndPartsAreTakenOutAgain) {
    const Ref both = g.join(g.load(kTwo, 4), g.load(kTwo, 0));
    g.store(both, 0);
    g.store(g.part(both, kTwo, 1), 4);
    g.store(g.part(both, Type::Binary64, 1), 6);
    expect({wide(4), wide(5), wide(0), wide(1), wide(0), wide(1), wide(5)});
}

TEST_F(Unfolded, AboveTwoJoinedScalarsThereIsNothing) {
    const Ref two = g.join(g.load(Type::Binary32, 1), g.load(Type::Binary32, 6));
    g.store_low(two, 0);
    expect({x(1), x(6)});
    g.store(two, 8);
    EXPECT_THROW(unfold(g, values), std::logic_error);
}

TEST_F(Unfolded, ConversionsOfVectorsAreOnesOfTheirLanes) {
    g.store(g.round(g.widen(g.load(kFour, 0))), 0);
    expect({values.round(values.widen(x(0))), values.round(values.widen(x(1))),
            values.round(values.widen(x(2))), values.round(values.widen(x(3)))});
}

}  // namespace
