#include "kernelgen/proof/bit_interpreter.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::interpret;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Type;

constexpr Type kVector = Type::Binary32x4;
constexpr double kUlp = std::numeric_limits<float>::epsilon();
using Values = std::vector<double>;

void expect_bits(const Values& got, const Values& wanted) {
    ASSERT_EQ(got.size(), wanted.size());
    for (std::size_t i = 0; i < got.size(); ++i)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(got[i]), std::bit_cast<std::uint64_t>(wanted[i]))
            << "index " << i << ": " << got[i] << ", wanted " << wanted[i];
}

/** (x[0] op x[1]) op x[2] in one element type. */
template <class Operation>
Values twice(Type type, const Values& x, const Operation& operation) {
    Graph g;
    const Ref first = operation(g, g.load(type, 0), g.load(type, 1));
    g.store(operation(g, first, g.load(type, 2)), 0);
    return interpret(g, x, 1, 1);
}

const auto add = [](Graph& g, Ref a, Ref b) { return g.add(a, b); };
const auto sub = [](Graph& g, Ref a, Ref b) { return g.sub(a, b); };
const auto mul = [](Graph& g, Ref a, Ref b) { return g.mul(a, b); };

TEST(BitInterpreter, Binary32SumsAreRoundedOneByOne) {
    expect_bits(twice(Type::Binary32, {1, kUlp / 2, kUlp / 2}, add), {1});
    expect_bits(twice(Type::Binary64, {1, kUlp / 2, kUlp / 2}, add), {1 + kUlp});
}

TEST(BitInterpreter, Binary32DifferencesAreRoundedOneByOne) {
    expect_bits(twice(Type::Binary32, {1, -kUlp / 2, -kUlp / 2}, sub), {1});
    expect_bits(twice(Type::Binary64, {1, -kUlp / 2, -kUlp / 2}, sub), {1 + kUlp});
}

TEST(BitInterpreter, Binary32ProductsAreRoundedOneByOne) {
    const double a = 1 + kUlp;
    expect_bits(twice(Type::Binary32, {a, a, a}, mul), {1 + 3 * kUlp});
    expect_bits(twice(Type::Binary64, {a, a, a}, mul), {a * a * a});
}

TEST(BitInterpreter, TiesGoToTheEvenNeighbour) {
    Graph g;
    g.store(g.add(g.load(Type::Binary32, 0), g.load(Type::Binary32, 1)), 0);
    expect_bits(interpret(g, {1, kUlp / 2}, 1, 1), {1});
    expect_bits(interpret(g, {1 + kUlp, kUlp / 2}, 1, 1), {1 + 2 * kUlp});
}

TEST(BitInterpreter, SubnormalResultsAreKept) {
    const double tiny = std::numeric_limits<float>::denorm_min();
    Graph g;
    g.store(g.mul(g.load(Type::Binary32, 0), g.load(Type::Binary32, 1)), 0);
    expect_bits(interpret(g, {3 * tiny, 0.5}, 1, 1), {2 * tiny});
    expect_bits(interpret(g, {tiny, 0.5}, 1, 1), {0});
}

TEST(BitInterpreter, Binary32OverflowGivesInfinity) {
    Graph g;
    g.store(g.add(g.load(Type::Binary32, 0), g.load(Type::Binary32, 0)), 0);
    expect_bits(interpret(g, {std::numeric_limits<float>::max()}, 1, 1),
                {std::numeric_limits<double>::infinity()});
}

TEST(BitInterpreter, ConstantsAreRoundedToTheTypeOfTheirNode) {
    const Exact third = Exact::rational(1, 3);
    Graph g;
    g.store(g.mul(g.load(Type::Binary32, 0), Lanes{third}), 0);
    g.store(g.round(g.mul(g.widen(g.load(Type::Binary32, 0)), Lanes{third})), 1);
    // Five thirds tell the two roundings of 1/3 apart.
    const Values got = interpret(g, {5}, 1, 2);
    expect_bits(got, {static_cast<double>(5.0F * (1.0F / 3.0F)),
                      static_cast<double>(static_cast<float>(5.0 * (1.0 / 3.0)))});
    EXPECT_NE(got[0], got[1]);
}

TEST(BitInterpreter, AConstantIsRoundedToItsTypeBeforeAnyUse) {
    Graph g;
    g.store(g.constant(Type::Binary32, {Exact::rational(1, 3)}), 0);
    expect_bits(interpret(g, {}, 1, 1), {static_cast<double>(1.0F / 3.0F)});
}

TEST(BitInterpreter, WideProductsAreRoundedOnlyWhereTheGraphRounds) {
    Graph g;
    const Ref x = g.widen(g.load(Type::Binary32, 0));
    const Ref square = g.mul(x, x);
    const Ref one = g.widen(g.load(Type::Binary32, 1));
    g.store(g.round(g.sub(g.sub(square, one), g.widen(g.load(Type::Binary32, 2)))), 0);
    // (1 + u)^2 - 1 - 2u is u^2, all of which a binary32 square would lose.
    expect_bits(interpret(g, {1 + kUlp, 1, 2 * kUlp}, 1, 1), {kUlp * kUlp});
}

TEST(BitInterpreter, RoundGivesTheNearestBinary32) {
    Graph g;
    const Ref a = g.widen(g.load(Type::Binary32, 0));
    g.store(g.round(g.add(a, g.widen(g.load(Type::Binary32, 1)))), 0);
    expect_bits(interpret(g, {1, 0.75 * kUlp}, 1, 1), {1 + kUlp});
    expect_bits(interpret(g, {1, 0.25 * kUlp}, 1, 1), {1});
}

TEST(BitInterpreter, TheScaleFactorIsInEveryLane) {
    Graph g;
    g.store(g.mul(g.load(kVector, 0), g.scale(kVector)), 0);
    expect_bits(interpret(g, {1, 2, 3, 4}, 0.25, 4), {0.25, 0.5, 0.75, 1});
}

TEST(BitInterpreter, ShufflesPickLanesOfBothOperands) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    const Ref y = g.load(kVector, 4);
    g.store(g.shuffle(x, y, {3, 0, 6, 5}), 0);
    g.store(g.shuffle(x, y, {4, 5, 2, 3}), 4);
    expect_bits(interpret(g, {1, 2, 3, 4, 5, 6, 7, 8}, 1, 8), {4, 1, 7, 6, 5, 6, 3, 4});
}

TEST(BitInterpreter, ShufflesOfTwoLanesPickFromBothOperands) {
    Graph g;
    const Ref x = g.load(Type::Binary64x2, 0);
    const Ref y = g.load(Type::Binary64x2, 2);
    g.store(g.shuffle(x, y, {1, 2, 0, 0}), 0);
    expect_bits(interpret(g, {1, 2, 3, 4}, 1, 2), {2, 3});
}

TEST(BitInterpreter, FlipsChangeTheSignOfTheirLanesOnlyAndOfZeroToo) {
    Graph g;
    g.store(g.flip(g.load(kVector, 0), {1, 0, 1, 0}), 0);
    expect_bits(interpret(g, {0, 0, -0.0, 5}, 1, 4), {-0.0, 0, 0, 5});
    expect_bits(interpret(g, {7, 8, -9, -10}, 1, 4), {-7, 8, 9, -10});
}

TEST(BitInterpreter, ZeroIsPositiveInAllLanes) {
    Graph g;
    g.store(g.zero(kVector), 0);
    expect_bits(interpret(g, {}, 1, 4), {0, 0, 0, 0});
}

TEST(BitInterpreter, HalfLoadsFillHalvesAndLeaveZerosAbove) {
    Graph g;
    const Ref low = g.load_low(kVector, 2);
    g.store(low, 0);
    g.store(g.load_high(low, 6), 4);
    g.store(g.load_scalar(kVector, 5), 8);
    expect_bits(interpret(g, {1, 2, 3, 4, 5, 6, 7, 8}, 1, 12),
                {3, 4, 0, 0, 3, 4, 7, 8, 6, 0, 0, 0});
}

TEST(BitInterpreter, HalfLoadsOfBinary64MoveOneElement) {
    Graph g;
    const Ref low = g.load_low(Type::Binary64x2, 1);
    g.store(low, 0);
    g.store(g.load_high(low, 3), 2);
    expect_bits(interpret(g, {1, 2, 3, 4}, 1, 4), {2, 0, 2, 4});
}

TEST(BitInterpreter, HalfStoresWriteTheirHalfOnly) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    g.store_low(x, 1);
    g.store_high(x, 5);
    expect_bits(interpret(g, {1, 2, 3, 4}, 1, 8), {0, 1, 2, 0, 0, 3, 4, 0});
}

TEST(BitInterpreter, ReadingOrWritingOutsideTheArraysIsRefused) {
    Graph g;
    g.store(g.load(kVector, 4), 0);
    EXPECT_THROW(interpret(g, Values(7, 1.0), 1, 4), std::out_of_range);
    EXPECT_THROW(interpret(g, Values(8, 1.0), 1, 3), std::out_of_range);
    EXPECT_NO_THROW(interpret(g, Values(8, 1.0), 1, 4));
}

TEST(BitInterpreter, LanesAreGatheredSpreadJoinedAndTakenOut) {
    Graph g;
    g.store(g.gather(kVector, {5, 0, 3, 3}), 0);
    g.store(g.spread(g.load(Type::Binary32, 2)), 4);
    const Ref joined = g.join(g.load(Type::Binary64x2, 0), g.load(Type::Binary64x2, 4));
    g.store(g.part(joined, Type::Binary64x2, 1), 8);
    g.store(g.part(joined, Type::Binary64, 3), 10);
    expect_bits(interpret(g, {10, 11, 12, 13, 14, 15}, 1, 11),
                {15, 10, 13, 13, 12, 12, 12, 12, 14, 15, 15});
}

TEST(BitInterpreter, VectorsAreConvertedLaneByLane) {
    Graph g;
    const Ref wide = g.widen(g.load(kVector, 0));
    g.store(g.round(g.mul(wide, Lanes(4, Exact::rational(1, 3)))), 0);
    Values wanted;
    for (int i = 1; i <= 4; ++i) wanted.push_back(static_cast<float>(i * (1.0 / 3)));
    expect_bits(interpret(g, {1, 2, 3, 4}, 1, 4), wanted);
}

}  // namespace
