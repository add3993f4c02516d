#include "kernelgen/proof/proof.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Type;
using kernelgen::Wide;

constexpr Type kVector = Type::Binary32x4;

enum class Damage { None, Sign, Constant, TinyConstant, Lanes, MissingStore, Place, Addend };

const Exact kSine = Exact::sine(1, 3);
const Exact kBillionth = Exact::rational(1, 1000000000);

/** 10^-27 and 5 * 10^-29, either side of what a proof lets pass. */
const Exact kCaught = Exact::product({kBillionth, kBillionth, kBillionth});
const Exact kAllowed = Exact::product({kCaught, Exact::rational(1, 20)});

/** y = A x for four complex rows at once: sum, and (difference turned by -i) times sin(2 pi/3). */
Graph kernel(Damage damage) {
    Graph g;
    const Ref x = g.load(kVector, 0);
    const Ref y = g.load(kVector, 4);
    Exact c = kSine;
    if (damage == Damage::Constant) c = Exact::sum({kSine, kCaught});
    if (damage == Damage::TinyConstant) c = Exact::sum({kSine, kAllowed});
    const Ref sum = damage == Damage::Addend ? g.add(x, g.mul(y, Lanes(4, c))) : g.add(x, y);
    const Ref difference = damage == Damage::Sign ? g.sub(y, x) : g.sub(x, y);
    const Ref swapped = damage == Damage::Lanes ? g.shuffle(difference, difference, {1, 0, 6, 7})
                                                : g.shuffle(difference, difference, {1, 0, 7, 6});
    const Ref turned = g.flip(g.mul(swapped, {c, c, kSine, kSine}), {0, 1, 0, 1});
    const Ref scaled = g.mul(turned, g.scale(kVector));
    g.store(sum, damage == Damage::Place ? 4 : 0);
    if (damage == Damage::MissingStore)
        g.store_low(scaled, 4);
    else
        g.store(scaled, damage == Damage::Place ? 0 : 4);
    return g;
}

Wide definition(int row, int column) {
    if (row < 4) return row == column % 4 ? 1 : 0;
    const int lane = row % 4;
    if ((lane ^ 1) != column % 4) return 0;
    const Wide sign = column < 4 ? 1 : -1;
    return sign * (lane % 2 == 0 ? 1 : -1) * kSine.value();
}

Wide deviation_of(Damage damage) {
    return kernelgen::deviation(kernel(damage), 8, 8, definition);
}

void expect_caught(Damage damage) {
    EXPECT_THROW(kernelgen::prove("damaged", kernel(damage), 8, 8, definition), std::runtime_error)
        << "deviation " << deviation_of(damage);
}

TEST(Proof, ARightKernelPasses) {
    EXPECT_NO_THROW(kernelgen::prove("right", kernel(Damage::None), 8, 8, definition));
    EXPECT_LT(deviation_of(Damage::None), Wide("1e-50"));
}

TEST(Proof, AWrongSignIsCaught) {
    expect_caught(Damage::Sign);
}

TEST(Proof, SwappedLanesAreCaught) {
    expect_caught(Damage::Lanes);
}

TEST(Proof, SwappedStoresAreCaught) {
    expect_caught(Damage::Place);
}

TEST(Proof, AFactorTooManyIsCaught) {
    expect_caught(Damage::Addend);
}

TEST(Proof, AMissingStoreIsCaught) {
    expect_caught(Damage::MissingStore);
}

TEST(Proof, AMissingStoreOfAnOutputThatShouldBeZeroIsCaught) {
    Graph g;
    g.store(g.load(Type::Binary32, 0), 0);
    const auto first_only = [](int row, int) -> Wide { return row == 0 ? 1 : 0; };
    EXPECT_NO_THROW(kernelgen::prove("whole", g, 1, 1, first_only));
    EXPECT_THROW(kernelgen::prove("incomplete", g, 1, 2, first_only), std::runtime_error);
}

TEST(Proof, AConstantThatIsWrongInItsTwentySeventhDigitIsCaught) {
    expect_caught(Damage::Constant);
}

TEST(Proof, TheDeviationIsWhatAConstantIsWrongBy) {
    EXPECT_LT(abs(deviation_of(Damage::Constant) - kCaught.value()), Wide("1e-50"));
    EXPECT_LT(abs(deviation_of(Damage::TinyConstant) - kAllowed.value()), Wide("1e-50"));
}

TEST(Proof, ItsThresholdLeavesRoomForTheLastDigits) {
    EXPECT_NO_THROW(kernelgen::prove("nearly", kernel(Damage::TinyConstant), 8, 8, definition));
}

TEST(Proof, AnInputThatTheDefinitionUsesButTheKernelIgnoresIsCaught) {
    Graph g;
    g.store(g.load(Type::Binary32, 0), 0);
    const auto sum_of_two = [](int, int) -> Wide { return 1; };
    EXPECT_THROW(kernelgen::prove("ignorant", g, 2, 1, sum_of_two), std::runtime_error);
}

TEST(Proof, ConversionsDoNotRoundInIt) {
    Graph g;
    const Ref x = g.widen(g.load(Type::Binary32, 0));
    g.store(g.round(g.mul(x, {kSine})), 0);
    const auto sine = [](int, int) { return kSine.value(); };
    EXPECT_NO_THROW(kernelgen::prove("wide", g, 1, 1, sine));
}

TEST(Proof, WhatStandsBehindTheInputsIsATableAndNoInput) {
    Graph g;
    const Ref x = g.load(Type::Binary32, 0);
    g.store(g.add(g.mul(x, g.load(Type::Binary32, 2)), g.load(Type::Binary32, 1)), 0);
    const auto sum = [](int, int column) { return column == 0 ? kSine.value() : Wide(1); };
    EXPECT_NO_THROW(kernelgen::prove("by a table", g, 2, 1, sum, {kSine.value()}));
    EXPECT_THROW(kernelgen::prove("by another", g, 2, 1, sum, {kSine.value() / 2}),
                 std::runtime_error);
}

/** y[0] = x[0] + x[stride], y[stride] = x[0] - x[stride], a stride apart. */
Graph butterfly(int stride) {
    Graph g;
    const Ref a = g.load(Type::Binary32, 0);
    const Ref b = g.load(Type::Binary32, stride);
    g.store(g.add(a, b), 0);
    g.store(g.sub(a, b), stride);
    return g;
}

Wide sum_and_difference(int row, int column) {
    return row == 1 && column == 1 ? -1 : 1;
}

void expect_caught_between(const Graph& graph) {
    EXPECT_THROW(kernelgen::prove_between("damaged", graph, {0, 3}, {0, 3}, sum_and_difference),
                 std::runtime_error);
}

TEST(Proof, OfElementsAStrideApartPasses) {
    EXPECT_NO_THROW(
        kernelgen::prove_between("right", butterfly(3), {0, 3}, {0, 3}, sum_and_difference));
}

TEST(Proof, OfElementsAStrideApartCatchesAnotherStride) {
    expect_caught_between(butterfly(2));
    EXPECT_THROW(
        kernelgen::prove_between("longer", butterfly(4), {0, 3}, {0, 3}, sum_and_difference),
        std::out_of_range);
}

TEST(Proof, OfElementsAStrideApartCatchesAReadInBetween) {
    Graph g = butterfly(3);
    g.store(g.add(g.load(Type::Binary32, 1),
                  g.add(g.load(Type::Binary32, 0), g.load(Type::Binary32, 3))),
            0);
    expect_caught_between(g);
}

TEST(Proof, OfElementsAStrideApartCatchesAWriteInBetween) {
    Graph g = butterfly(3);
    g.store(g.load(Type::Binary32, 0), 1);
    expect_caught_between(g);
}

TEST(Proof, ItsMessageNamesKernelRowColumnWantedAndGot) {
    Graph g;
    g.store(g.load(Type::Binary32, 0), 0);
    g.store(g.mul(g.load(Type::Binary32, 1), {Exact::rational(3, 4)}), 1);
    const auto definition = [](int row, int column) -> Wide {
        return row != column ? 0 : row == 0 ? Wide(1) : Wide("0.5");
    };
    try {
        kernelgen::prove("some_kernel by rule P(2,3)", g, 2, 2, definition);
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        const std::string message = error.what();
        for (const char* part : {"some_kernel by rule P(2,3)", "differs from the definition by 2.5",
                                 "row 1", "column 1", "wanted 5.0", "got 7.5"})
            EXPECT_NE(message.find(part), std::string::npos) << part << " is not in: " << message;
    }
}

}  // namespace
