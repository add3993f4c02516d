#include "kernelgen/lanes/lane_moves.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/bit_interpreter.hpp"

namespace {

using kernelgen::four_lanes;
using kernelgen::Graph;
using kernelgen::LaneOrigin;
using kernelgen::Ref;
using kernelgen::Type;

/** Four vectors, whose lanes hold 0 to 15, of doubles and of singles. */
class LaneMoves : public testing::TestWithParam<Type> {
  protected:
    Graph g;

    LaneOrigin lane(int number) { return {g.load(GetParam(), number / 4 * 4), number % 4}; }
    Ref vector_of(int a, int b, int c, int d) {
        return four_lanes(g, {lane(a), lane(b), lane(c), lane(d)});
    }
    std::vector<double> outputs(int number) const {
        std::vector<double> source;
        for (int i = 0; i < 16; ++i) source.push_back(i);
        return kernelgen::interpret(g, source, 1, number);
    }
    int moves() const { return kernelgen::count(g, false).shuffles; }
};

TEST_P(LaneMoves, ATransposeTakesEightMoves) {
    std::vector<double> wanted;
    for (int column = 0; column < 4; ++column) {
        g.store(vector_of(column, 4 + column, 8 + column, 12 + column), 4 * column);
        for (int row = 0; row < 4; ++row) wanted.push_back(4 * row + column);
    }
    EXPECT_EQ(outputs(16), wanted);
    EXPECT_EQ(moves(), 8);
}

TEST_P(LaneMoves, AVectorItselfTakesNone) {
    g.store(vector_of(4, 5, 6, 7), 0);
    EXPECT_EQ(outputs(4), (std::vector<double>{4, 5, 6, 7}));
    EXPECT_EQ(moves(), 0);
}

TEST_P(LaneMoves, LanesOfOneVectorAndLanesThatStayWhereTheyAreTakeOne) {
    g.store(vector_of(7, 4, 4, 6), 0);
    g.store(vector_of(0, 5, 6, 3), 4);
    EXPECT_EQ(outputs(8), (std::vector<double>{7, 4, 4, 6, 0, 5, 6, 3}));
    EXPECT_EQ(moves(), 2);
}

TEST_P(LaneMoves, AnyFourLanesAreFound) {
    // A fixed walk through all places, which meets one, two, three and four vectors.
    std::vector<double> wanted;
    for (int i = 0; i < 64; ++i) {
        int lanes[4];
        for (int l = 0; l < 4; ++l) {
            lanes[l] = (7 * i + 5 * l * i + 3 * l) % 16;
            wanted.push_back(lanes[l]);
        }
        g.store(vector_of(lanes[0], lanes[1], lanes[2], lanes[3]), 4 * i);
    }
    EXPECT_EQ(outputs(256), wanted);
}

TEST_P(LaneMoves, TwoValuesComeIntoOneHalfWhereverTheyAre) {
    for (int a = 0; a < 8; ++a) {
        for (int b = 0; b < 8; ++b) {
            if (a == b) continue;
            Graph graph;
            const auto origin = [&](int i) {
                return LaneOrigin{graph.load(GetParam(), i / 4 * 4), i % 4};
            };
            const LaneOrigin both = kernelgen::in_one_half(graph, origin(a), origin(b));
            ASSERT_EQ(both.lane % 2, 0);
            if (both.lane == 0)
                graph.store_low(both.vector, 0);
            else
                graph.store_high(both.vector, 0);
            EXPECT_EQ(kernelgen::interpret(graph, {0, 1, 2, 3, 4, 5, 6, 7}, 1, 2),
                      (std::vector<double>{double(a), double(b)}))
                << "elements " << a << " and " << b;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfDoublesAndSingles, LaneMoves,
                         testing::Values(Type::Binary64x4, Type::Binary32x4));

}  // namespace
