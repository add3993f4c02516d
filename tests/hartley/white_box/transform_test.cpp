#include <gtest/gtest.h>

#include <set>

#include "tests/dft_real/white_box/support/network.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"
#include "transforms/hartley/hartley_transform.hpp"

// The Hartley transform as a stage around the real DFT.

namespace {

using dft_real_test::Graph;
using dft_real_test::Reals;
using dft_real_test::RowArithmetic;
using dft_real_test::Wide;
using hartley::hartley_transform;
using hartley::PairStage;

Graph network(int N) {
    Graph graph;
    RowArithmetic m(graph);
    Reals x;
    for (int n = 0; n < N; ++n) x.push_back(m.load(n));
    const Reals y = hartley_transform(m, x);
    for (int k = 0; k < N; ++k) dft_real_test::store(m, y[dft_real_test::at(k)], k);
    return graph;
}

TEST(HartleyTransform, IsTheSumWithCosinesAndSinesByBothStages) {
    std::set<PairStage> stages;
    for (int N = 2; N <= 64; ++N) {
        stages.insert(hartley::pair_stage(N));
        const Wide deviation = kernelgen::deviation(network(N), N, N, [&](int k, int n) -> Wide {
            const long turns = static_cast<long>(k) * n;
            return kernelgen::Exact::cosine(turns, N).value() +
                   kernelgen::Exact::sine(turns, N).value();
        });
        EXPECT_LT(deviation, dft_real_test::kExact) << "length " << N;
    }
    EXPECT_EQ(stages.size(), 2U) << "one of the two stages was not looked at";
}

// But for its factor the transform is its own inverse.
TEST(HartleyTransform, TwiceIsTheSignalTimesItsLength) {
    for (int N : {2, 3, 8, 11, 12, 13, 15, 32, 45}) {
        Graph graph;
        RowArithmetic m(graph);
        Reals x;
        for (int n = 0; n < N; ++n) x.push_back(m.load(n));
        const Reals y = hartley_transform(m, hartley_transform(m, x));
        for (int k = 0; k < N; ++k) dft_real_test::store(m, y[dft_real_test::at(k)], k);
        const Wide deviation =
            kernelgen::deviation(graph, N, N, [&](int k, int n) -> Wide { return k == n ? N : 0; });
        EXPECT_LT(deviation, dft_real_test::kExact) << "length " << N;
    }
}

// An opening stage hands its pairs to an inverse transform, whose last operations are sums; a
// closing one forms them itself.
TEST(HartleyTransform, NoOutputEndsInARow) {
    for (int N = 2; N <= 64; ++N) {
        Graph graph;
        RowArithmetic m(graph);
        Reals x;
        for (int n = 0; n < N; ++n) x.push_back(m.load(n));
        for (const dft_real::Ref y : hartley_transform(m, x))
            EXPECT_NE(graph.node(y.id).op, kernelgen::Op::Round) << "length " << N;
    }
}

}  // namespace
