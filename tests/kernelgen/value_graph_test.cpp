#include "kernelgen/values/value_graph.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using kernelgen::Outputs;
using kernelgen::SignedValue;
using kernelgen::Type;
using kernelgen::ValueGraph;

class Values : public testing::Test {
  protected:
    ValueGraph values;
    SignedValue a = values.input(Type::Binary32, 0);
    SignedValue b = values.input(Type::Binary32, 1);
    SignedValue c = values.input(Type::Binary32, 2);
    SignedValue wide = values.input(Type::Binary64, 0);

    SignedValue constant(double value) { return values.constant(Type::Binary32, value); }
    SignedValue add(SignedValue x, SignedValue y) { return values.add(x, y); }
    SignedValue mul(SignedValue x, SignedValue y) { return values.mul(x, y); }
};

TEST_F(Values, EqualNodesAreOne) {
    EXPECT_EQ(values.input(Type::Binary32, 0), a);
    EXPECT_EQ(values.scale(Type::Binary32), values.scale(Type::Binary32));
    EXPECT_EQ(add(a, b), add(a, b));
    EXPECT_EQ(values.widen(a), values.widen(a));
    EXPECT_EQ(values.round(wide), values.round(wide));
}

TEST_F(Values, OfOtherPlacesOperationsAndPrecisionsAreOthers) {
    EXPECT_NE(a, b);
    EXPECT_NE(a, wide);
    EXPECT_NE(values.scale(Type::Binary32), values.scale(Type::Binary64));
    EXPECT_NE(add(a, b), mul(a, b));
    EXPECT_NE(values.constant(Type::Binary32, 0.5), values.constant(Type::Binary64, 0.5));
}

TEST_F(Values, OperandsOfSumsAndProductsMayBeExchanged) {
    EXPECT_EQ(add(a, b), add(b, a));
    EXPECT_EQ(add(a, -b), add(-b, a));
    EXPECT_EQ(mul(a, b), mul(b, a));
}

TEST_F(Values, SumsOfAllPatternsOfSignsDiffer) {
    const SignedValue sums[] = {add(a, b), add(a, -b), add(-a, b), add(-a, -b)};
    for (const SignedValue& sum : sums) {
        for (const SignedValue& other : sums) {
            if (&sum == &other) continue;
            EXPECT_NE(sum, other) << (&sum - sums) << ", " << (&other - sums);
            EXPECT_NE(sum, -other) << (&sum - sums) << ", " << (&other - sums);
        }
    }
}

TEST_F(Values, SumsDependOnHowTheyAreGrouped) {
    EXPECT_NE(add(add(a, b), c), add(a, add(b, c)));
    EXPECT_NE(add(a, a), add(a, b));
}

TEST_F(Values, ASignMovesThroughProducts) {
    EXPECT_EQ(mul(-a, b), -mul(a, b));
    EXPECT_EQ(mul(a, -b), -mul(a, b));
    EXPECT_EQ(mul(-a, -b), mul(a, b));
    EXPECT_EQ(mul(a, constant(-0.5)), -mul(a, constant(0.5)));
}

TEST_F(Values, ASignMovesThroughConversions) {
    EXPECT_EQ(values.widen(-a), -values.widen(a));
    EXPECT_EQ(values.round(-wide), -values.round(wide));
}

TEST_F(Values, ConstantsOfBothSignsAreOneNode) {
    EXPECT_EQ(constant(-0.5), -constant(0.5));
    EXPECT_EQ(constant(-0.0), -constant(0.0));
    EXPECT_EQ(values.zero(Type::Binary32), constant(0.0));
}

TEST_F(Values, ProductsByOneAreTheirOperands) {
    EXPECT_EQ(mul(a, constant(1)), a);
    EXPECT_EQ(mul(constant(1), a), a);
    EXPECT_EQ(mul(a, constant(-1)), -a);
    EXPECT_EQ(mul(-a, constant(-1)), a);
    EXPECT_EQ(mul(constant(1), constant(1)), constant(1));
}

TEST_F(Values, ProductsByZeroStay) {
    EXPECT_NE(mul(a, constant(0)), constant(0));
    EXPECT_EQ(values.node(mul(a, constant(0)).id).op, kernelgen::ValueOp::Mul);
}

TEST_F(Values, SumsWithZeroStay) {
    EXPECT_NE(add(a, constant(0)), a);
    EXPECT_NE(add(a, constant(-0.0)), add(a, constant(0)));
}

TEST_F(Values, RoundingWhatWasWidenedIsANodeOfItsOwn) {
    EXPECT_EQ(values.node(values.round(values.widen(a)).id).op, kernelgen::ValueOp::Round);
}

TEST_F(Values, OperandsOfTwoPrecisionsAreRefused) {
    EXPECT_THROW(add(a, wide), std::logic_error);
    EXPECT_THROW(mul(a, wide), std::logic_error);
    EXPECT_THROW(values.widen(wide), std::logic_error);
    EXPECT_THROW(values.round(a), std::logic_error);
}

TEST_F(Values, LiveAreThoseThatOutputsNeedInTheirOrder) {
    const SignedValue sum = add(a, b);
    mul(sum, c);
    const SignedValue square = mul(sum, sum);
    EXPECT_EQ(values.live(Outputs{{0, -square}}),
              (std::vector<kernelgen::ValueId>{a.id, b.id, sum.id, square.id}));
}

}  // namespace
