#include "kernelgen/values/same_values.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "kernelgen/values/unfold.hpp"
#include "kernelgen/values/value_hash.hpp"
#include "targets/targets.hpp"

namespace {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::hash_of_values;
using kernelgen::Lanes;
using kernelgen::prove_same_values;
using kernelgen::Ref;
using kernelgen::Type;

constexpr Type kScalar = Type::Binary32;
constexpr Type kVector = Type::Binary32x4;
const Exact kThird = Exact::rational(1, 3);

using Formula = std::function<Ref(Graph&, const std::vector<Ref>&)>;

/** y[0] of four inputs, in scalars. */
Graph scalars(const Formula& formula) {
    Graph g;
    std::vector<Ref> x;
    for (int i = 0; i < 4; ++i) x.push_back(g.load(kScalar, i));
    g.store(g.positive(formula(g, x)), 0);
    return g;
}

std::string complaint(const Graph& graph, const Graph& wanted) {
    try {
        prove_same_values("kernel", graph, "reference", wanted);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

void expect_same(const Graph& graph, const Graph& other) {
    EXPECT_EQ(complaint(graph, other), "none");
    EXPECT_EQ(hash_of_values(graph), hash_of_values(other));
}

void expect_other(const Graph& graph, const Graph& other) {
    EXPECT_NE(complaint(graph, other), "none");
    EXPECT_NE(hash_of_values(graph), hash_of_values(other));
}

Ref times(Graph& g, Ref a, const Exact& c) {
    return g.mul(a, g.constant(kScalar, {c}));
}

TEST(SameValues, AnotherGroupingOfThreeSumsIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return g.add(g.add(x[0], x[1]), x[2]); }),
                 scalars([](Graph& g, auto& x) { return g.add(x[0], g.add(x[1], x[2])); }));
}

TEST(SameValues, AFactorMovedAcrossASumIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return times(g, g.add(x[0], x[1]), kThird); }),
                 scalars([](Graph& g, auto& x) {
                     const Ref a = times(g, x[0], kThird);
                     const Ref b = times(g, x[1], kThird);
                     return g.add(a, b);
                 }));
}

TEST(SameValues, AConstantSplitInTwoIsCaught) {
    const Exact part = Exact::cosine(1, 7);
    const Exact rest = Exact::cosine(1, 9);
    expect_other(scalars([&](Graph& g, auto& x) {
                     return times(g, x[0], Exact::product({part, rest}));
                 }),
                 scalars([&](Graph& g, auto& x) { return times(g, times(g, x[0], part), rest); }));
}

TEST(SameValues, AConstantOneUnitOfTheLastPlaceAwayIsCaught) {
    const Exact unit = Exact::rational(1, 1L << 24);
    expect_other(scalars([](Graph& g, auto& x) { return times(g, x[0], Exact::rational(1, 2)); }),
                 scalars([&](Graph& g, auto& x) {
                     return times(g, x[0], Exact::sum({Exact::rational(1, 2), unit}));
                 }));
}

TEST(SameValues, TheSignOfAZeroIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return g.sub(x[0], x[1]); }),
                 scalars([](Graph& g, auto& x) { return -g.sub(x[1], x[0]); }));
    expect_other(scalars([](Graph& g, auto& x) { return -g.add(x[0], x[1]); }),
                 scalars([](Graph& g, auto& x) { return g.sub(g.positive(-x[0]), x[1]); }));
}

TEST(SameValues, AProductByZeroThatIsLeftOutIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return times(g, x[0], Exact()); }),
                 scalars([](Graph& g, auto&) { return g.zero(kScalar); }));
}

TEST(SameValues, ASumWithZeroThatIsLeftOutIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return g.add(x[0], g.zero(kScalar)); }),
                 scalars([](Graph&, auto& x) { return x[0]; }));
}

TEST(SameValues, ARoundingOnTheWayIsCaught) {
    expect_other(scalars([](Graph& g, auto& x) {
                     return g.round(g.mul(g.widen(g.add(x[0], x[1])), Lanes{kThird}));
                 }),
                 scalars([](Graph& g, auto& x) {
                     const Ref a = g.widen(x[0]);
                     const Ref b = g.widen(x[1]);
                     return g.round(g.mul(g.add(a, b), Lanes{kThird}));
                 }));
}

TEST(SameValues, ExchangedInputsAreCaught) {
    expect_other(scalars([](Graph& g, auto& x) { return g.sub(x[0], x[1]); }),
                 scalars([](Graph& g, auto& x) { return g.sub(x[1], x[0]); }));
}

TEST(SameValues, ExchangedOperandsOfASumAreTheSame) {
    expect_same(scalars([](Graph& g, auto& x) { return g.add(g.add(x[0], x[1]), x[2]); }),
                scalars([](Graph& g, auto& x) { return g.add(x[2], g.add(x[1], x[0])); }));
}

TEST(SameValues, AProductByOneIsNoRounding) {
    expect_same(
        scalars([](Graph& g, auto& x) { return g.add(times(g, x[0], Exact::rational(1)), x[1]); }),
        scalars([](Graph& g, auto& x) { return g.add(x[0], x[1]); }));
}

TEST(SameValues, ASignOnEitherSideOfAProductIsTheSame) {
    expect_same(scalars([](Graph& g, auto& x) { return times(g, g.positive(-x[0]), kThird); }),
                scalars([](Graph& g, auto& x) { return times(g, x[0], -kThird); }));
}

TEST(SameValues, OrdersOfTheNodesAreTheSame) {
    const Graph forwards = [] {
        Graph g;
        const Ref a = g.load(kScalar, 0);
        const Ref b = g.load(kScalar, 1);
        g.store(g.add(a, b), 0);
        g.store(g.sub(a, b), 1);
        return g;
    }();
    const Graph backwards = [] {
        Graph g;
        const Ref b = g.load(kScalar, 1);
        const Ref a = g.load(kScalar, 0);
        g.store(g.sub(a, b), 1);
        g.store(g.add(b, a), 0);
        return g;
    }();
    expect_same(forwards, backwards);
}

/** y[i] = (x[i] - x[4 + i]) / 3, each on its own, four in a vector, and four in another order. */
Graph one_by_one() {
    Graph g;
    for (int i = 0; i < 4; ++i) {
        const Ref a = g.load(kScalar, i);
        const Ref b = g.load(kScalar, 4 + i);
        g.store(times(g, g.sub(a, b), kThird), i);
    }
    return g;
}

Graph four_lanes() {
    Graph g;
    const Ref a = g.load(kVector, 0);
    const Ref b = g.load(kVector, 4);
    g.store(g.mul(g.sub(a, b), Lanes(4, kThird)), 0);
    return g;
}

Graph four_other_lanes() {
    Graph g;
    const auto reversed = [&](Ref a) { return g.shuffle(a, a, {3, 2, 5, 4}); };
    const Ref a = g.load_high(g.load_low(kVector, 0), 2);
    const Ref turned = reversed(a);
    const Ref difference = g.sub(turned, reversed(g.load(kVector, 4)));
    g.store(reversed(g.mul(difference, Lanes(4, kThird))), 0);
    return g;
}

TEST(SameValues, LanesAreTheSame) {
    expect_same(four_lanes(), one_by_one());
    expect_same(four_other_lanes(), one_by_one());
}

TEST(SameValues, OutputsAtOtherPlacesAreCaught) {
    Graph g;
    g.store(g.shuffle(g.load(kVector, 0), g.load(kVector, 0), {1, 0, 6, 7}), 0);
    Graph plain;
    plain.store(plain.load(kVector, 0), 0);
    expect_other(g, plain);
}

TEST(SameValues, OutputsThatOneDoesNotWriteAreCaught) {
    Graph half;
    half.store_low(half.load(kVector, 0), 0);
    Graph whole;
    whole.store(whole.load(kVector, 0), 0);
    EXPECT_EQ(complaint(half, whole), "kernel: output 2 is not written, but reference has it");
    EXPECT_EQ(complaint(whole, half), "reference: output 2 is not written, but kernel has it");
    EXPECT_NE(hash_of_values(half), hash_of_values(whole));
}

TEST(SameValues, TheComplaintNamesTheOutputAndTheFirstDifference) {
    const auto kernel = [](bool wrong) {
        Graph g;
        std::vector<Ref> x;
        for (int i = 0; i < 4; ++i) x.push_back(g.load(kScalar, i));
        g.store(g.add(x[0], x[1]), 0);
        const Ref inner = wrong ? g.sub(x[2], x[3]) : g.add(x[2], x[3]);
        const Ref product = g.mul(g.add(inner, x[0]), g.scale(kScalar));
        g.store(product, 1);
        return g;
    };
    EXPECT_EQ(complaint(kernel(true), kernel(false)),
              "kernel: output 1 has not the bits of reference: it takes (x[2] - x[3]) in binary32 "
              "for (x[2] + x[3]) in binary32");
}

TEST(SameValues, TheComplaintTellsConstantsApart) {
    const auto kernel = [](const Exact& c) {
        return scalars(
            [&](Graph& g, auto& x) { return g.add(times(g, g.add(x[1], x[2]), c), x[0]); });
    };
    EXPECT_EQ(complaint(kernel(Exact::rational(1, 2)), kernel(kThird)),
              "kernel: output 0 has not the bits of reference: it takes (x[1] + x[2]) * 0.5 in "
              "binary32 for (x[1] + x[2]) * 0.333333343 in binary32");
}

/** What is said of a target's kernel of a sum of three beside the reference's, both grouped as
 * told; `described` counts how often the latter was made. */
std::string complaint_for(const kernelgen::Target& target, bool same_grouping, int& described) {
    const auto sums = [](bool first_pair) {
        return scalars([=](Graph& g, auto& x) {
            return first_pair ? g.add(g.add(x[0], x[1]), x[2]) : g.add(x[0], g.add(x[1], x[2]));
        });
    };
    try {
        kernelgen::prove_values_of_reference("kernel", sums(same_grouping), target, [&] {
            ++described;
            return sums(true);
        });
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

TEST(ValuesOfTheReference, AreAskedOfTheKernelsOfAllOtherTargets) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        if (target.name == kernelgen::kReference.name) continue;
        int described = 0;
        EXPECT_EQ(complaint_for(target, true, described), "none") << target.name;
        EXPECT_EQ(complaint_for(target, false, described),
                  "kernel for " + std::string(target.name) +
                      ": output 0 has not the bits of kernel for ia32: it takes (x[0] + (x[1] + "
                      "x[2])) in binary32 for (x[2] + (x[0] + x[1])) in binary32");
        EXPECT_EQ(described, 2) << target.name;
    }
}

TEST(ValuesOfTheReference, AreNotDescribedAgainForItself) {
    int described = 0;
    EXPECT_EQ(complaint_for(kernelgen::kReference, false, described), "none");
    EXPECT_EQ(described, 0);
}

TEST(InWords, DeepExpressionsAreCut) {
    kernelgen::ValueGraph values;
    kernelgen::SignedValue sum = values.input(Type::Binary64, 0);
    for (int i = 1; i < 5; ++i) sum = values.add(values.input(Type::Binary64, i), -sum);
    EXPECT_EQ(in_words(values, sum, 2).find("x[1]"), std::string::npos);
    EXPECT_NE(in_words(values, sum, 2).find("..."), std::string::npos);
    EXPECT_EQ(in_words(values, sum, 9).find("..."), std::string::npos);
}

TEST(InWords, ConversionsAndSignsAreTold) {
    kernelgen::ValueGraph values;
    const auto x = values.input(Type::Binary32, 3);
    // Nodes are numbered as they are made, and operands told in that order.
    const auto scale = values.scale(Type::Binary64);
    const auto wide = values.mul(values.widen(x), scale);
    EXPECT_EQ(in_words(values, -values.round(wide), 9), "-rounded(scale * wide(x[3]))");
}

TEST(HashOfValues, HasSixteenDigits) {
    EXPECT_EQ(hash_of_values(four_lanes()).size(), 16U);
    EXPECT_EQ(hash_of_values(four_lanes()).find_first_not_of("0123456789abcdef"),
              std::string::npos);
}

TEST(HashOfValues, StaysWhatItIs) {
    // Manifests hold these hashes, so that another way to make them would look like other bits.
    // This one was calculated apart, from what a node and an output are made of.
    EXPECT_EQ(hash_of_values(one_by_one()), "a6d9e976f254d0af");
}

TEST(HashOfValues, DoesNotDependOnWhatElseAValueGraphHolds) {
    kernelgen::ValueGraph values;
    values.add(values.input(kScalar, 5), values.input(kScalar, 1));
    const kernelgen::Outputs outputs = unfold(four_lanes(), values);
    EXPECT_EQ(hash_of_values(values, outputs), hash_of_values(one_by_one()));
}

}  // namespace
