#include "kernelgen/values/graph_of_values.hpp"

#include <gtest/gtest.h>

#include "kernelgen/values/unfold.hpp"

namespace {

using kernelgen::Graph;
using kernelgen::graph_of_values;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Outputs;
using kernelgen::SignedValue;
using kernelgen::Type;
using kernelgen::unfold;
using kernelgen::ValueGraph;

/** Values, and the same once they have been a graph in between. */
class GraphOfValues : public testing::Test {
  protected:
    ValueGraph values;

    SignedValue x(int place) { return values.input(Type::Binary64, place); }
    SignedValue narrow(int place) { return values.input(Type::Binary32, place); }

    void expect_same_again(const Outputs& outputs) {
        EXPECT_EQ(outputs, unfold(graph_of_values(values, outputs), values));
    }
};

TEST_F(GraphOfValues, KeepsSumsAndDifferences) {
    expect_same_again(
        {{0, values.add(x(0), x(1))}, {1, values.add(x(0), -x(1))}, {2, values.add(-x(0), x(1))}});
}

TEST_F(GraphOfValues, KeepsTheZerosOfSumsOfTwoNegatives) {
    const SignedValue negative_sum = -values.add(x(0), x(1));
    const SignedValue sum_of_negatives = values.add(-x(0), -x(1));
    ASSERT_NE(negative_sum, sum_of_negatives);
    expect_same_again({{0, negative_sum}, {1, sum_of_negatives}});
}

TEST_F(GraphOfValues, KeepsNegativeOutputs) {
    expect_same_again({{0, -x(0)}, {1, -values.mul(x(0), x(1))}});
}

TEST_F(GraphOfValues, KeepsConstantsToTheLastBit) {
    Outputs outputs;
    int element = 0;
    for (const double value :
         {1.0 / 3, 0x1.fffffffffffffp-1, 0x1p-60, 0x1.8p40, 3.0, 0x1.0000000000001p0})
        outputs[element++] = values.mul(x(0), values.constant(Type::Binary64, value));
    expect_same_again(outputs);
}

TEST_F(GraphOfValues, KeepsZerosThatAreAdded) {
    expect_same_again({{0, values.add(x(0), values.zero(Type::Binary64))}});
}

TEST_F(GraphOfValues, KeepsConversionsAndTheScaleFactor) {
    const SignedValue wide = values.widen(narrow(3));
    const SignedValue square = values.mul(wide, wide);
    expect_same_again({{2, values.mul(values.round(square), values.scale(Type::Binary32))}});
}

TEST_F(GraphOfValues, IsOfScalarsAlone) {
    const Graph graph =
        graph_of_values(values, {{0, values.add(x(0), x(1))}, {7, values.mul(x(4), x(1))}});
    for (const NodeId id : graph.live()) EXPECT_EQ(1, kernelgen::lane_count(graph.node(id).type));
}

}  // namespace
