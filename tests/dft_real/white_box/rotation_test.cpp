#include <gtest/gtest.h>

#include "tests/dft_real/white_box/support/network.hpp"
#include "tests/dft_real/white_box/support/network_shape.hpp"

// A value turned by a rational angle.

namespace {

using dft_real_test::Complexes;
using dft_real_test::ExactComplex;
using dft_real_test::Graph;
using dft_real_test::kExact;
using dft_real_test::RowArithmetic;
using dft_real_test::Wide;
using kernelgen::Op;

Graph rotation(long numerator, long denominator) {
    return dft_real_test::complex_network(1, [&](RowArithmetic& m, const Complexes& x) {
        return Complexes{rotated(m, x[0], numerator, denominator)};
    });
}

Wide deviation(const Graph& graph, long numerator, long denominator) {
    const ExactComplex w = ExactComplex::forward_root(numerator, denominator);
    return kernelgen::deviation(graph, 2, 2, [&](int row, int column) -> Wide {
        if (row == column) return w.re.value();
        return row == 1 ? w.im.value() : Wide(-w.im.value());
    });
}

/** Products but the two by the scale factor. */
int products(const Graph& graph) {
    return dft_real_test::products(graph) - 2;
}

template <class Check>
void for_each_angle(const Check& check) {
    for (long denominator : {1, 2, 3, 4, 5, 8, 9, 12, 16, 40, 64, 128}) {
        for (long numerator = -3 * denominator; numerator <= 3 * denominator; ++numerator) {
            SCOPED_TRACE(std::to_string(numerator) + "/" + std::to_string(denominator));
            check(numerator, denominator);
        }
    }
}

TEST(Rotation, IsTheProductWithARootOfUnity) {
    for_each_angle([](long numerator, long denominator) {
        EXPECT_LT(deviation(rotation(numerator, denominator), numerator, denominator), kExact);
    });
}

TEST(Rotation, ByQuarterTurnsTakesNoProduct) {
    int angles = 0;
    for_each_angle([&](long numerator, long denominator) {
        if (4 * numerator % denominator != 0) return;
        ++angles;
        EXPECT_EQ(products(rotation(numerator, denominator)), 0);
    });
    EXPECT_GT(angles, 50);
}

TEST(Rotation, ByOddEighthsTakesTwoProductsEachRoundedByItself) {
    int angles = 0;
    for_each_angle([&](long numerator, long denominator) {
        if (8 * numerator % denominator != 0 || 4 * numerator % denominator == 0) return;
        ++angles;
        const Graph graph = rotation(numerator, denominator);
        EXPECT_EQ(products(graph), 2);
        EXPECT_EQ(dft_real_test::number_of(graph, Op::Round), 2);
    });
    EXPECT_GT(angles, 50);
}

TEST(Rotation, ByOtherAnglesIsTwoRowsOfTwoProducts) {
    int angles = 0;
    for_each_angle([&](long numerator, long denominator) {
        if (8 * numerator % denominator == 0) return;
        ++angles;
        const Graph graph = rotation(numerator, denominator);
        EXPECT_EQ(products(graph), 4);
        EXPECT_EQ(dft_real_test::number_of(graph, Op::Round), 2);
    });
    EXPECT_GT(angles, 50);
}

TEST(Rotation, OfAnAbsentValueIsAbsent) {
    Graph graph;
    RowArithmetic m(graph);
    for_each_angle([&](long numerator, long denominator) {
        const dft_real::Complex turned = rotated(m, {}, numerator, denominator);
        EXPECT_TRUE(turned.re.is_zero());
        EXPECT_TRUE(turned.im.is_zero());
    });
}

TEST(Rotation, OfARealValueTakesNoSum) {
    for_each_angle([](long numerator, long denominator) {
        Graph graph;
        RowArithmetic m(graph);
        const dft_real::Complex turned = rotated(m, {m.load(0), {}}, numerator, denominator);
        for (const dft_real::Ref part : {turned.re, turned.im}) {
            if (part.is_zero()) continue;
            graph.store(dft_real::Ref{part.id}, 0);
        }
        EXPECT_EQ(dft_real_test::sums(graph), 0);
    });
}

}  // namespace
