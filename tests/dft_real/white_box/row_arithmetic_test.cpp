#include "transforms/dft_real/decompositions/row_arithmetic.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "tests/dft_real/white_box/support/network_shape.hpp"

namespace {

using dft_real::Complex;
using dft_real::Exact;
using dft_real::Graph;
using dft_real::product_of_rounded;
using dft_real::Ref;
using dft_real::RowArithmetic;
using dft_real::Type;
using dft_real_test::number_of;
using dft_real_test::products;
using dft_real_test::sums;
using kernelgen::Op;

const Exact kOne = Exact::rational(1);
const Exact kThird = Exact::rational(1, 3);
const Exact kRoot = Exact::square_root(2);

/** A graph with the arithmetic on it. */
struct Rows {
    Graph graph;
    RowArithmetic m{graph};

    double result(const std::vector<double>& source, double scale = 1) const {
        return kernelgen::interpret(graph, source, scale, 1).front();
    }
};

TEST(RowArithmetic, ARowIsRoundedOnce) {
    Rows rows;
    const Ref x =
        rows.m.row({{kThird, rows.m.load(0)}, {-kRoot, rows.m.load(1)}, {kOne, rows.m.load(2)}});
    rows.graph.store(x, 0);
    EXPECT_EQ(number_of(rows.graph, Op::Round), 1);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> part(-1, 1);
    int unlike = 0;
    for (int i = 0; i < 1000; ++i) {
        const float a = part(random);
        const float b = part(random);
        const float c = part(random);
        const double product = kThird.to_binary64() * a - kRoot.to_binary64() * b;
        const auto wanted = static_cast<float>(product + c);
        EXPECT_EQ(rows.result({a, b, c}), wanted) << a << ", " << b << ", " << c;
        if (wanted != static_cast<float>(product) + c) ++unlike;
    }
    EXPECT_GT(unlike, 0) << "no input tells one rounding from two";
}

TEST(RowArithmetic, TheTermsOfARowAreAddedInTheirOrder) {
    Rows rows;
    rows.graph.store(
        rows.m.row({{kOne, rows.m.load(0)}, {kThird, rows.m.load(1)}, {kOne, rows.m.load(2)}}), 0);
    // 2^60 swallows the product, which another order would keep.
    EXPECT_EQ(rows.result({0x1p60, 1, -0x1p60}), 0);
    EXPECT_NE(rows.result({0x1p60, 1, 0}), 0);
}

TEST(RowArithmetic, ARowLeavesOutAbsentValues) {
    Rows rows;
    const Ref x = rows.m.load(0);
    EXPECT_EQ(rows.m.row({{kThird, {}}, {kRoot, x}, {kOne, {}}}), rows.m.row({{kRoot, x}}));
}

TEST(RowArithmetic, ARowLeavesOutTermsWithAConstantOfZero) {
    Rows rows;
    const Ref x = rows.m.load(0);
    const Ref y = rows.m.load(1);
    EXPECT_EQ(rows.m.row({{Exact::rational(0), y}, {kRoot, x}}), rows.m.row({{kRoot, x}}));
}

TEST(RowArithmetic, ARowOfAbsentValuesIsAbsent) {
    Rows rows;
    EXPECT_TRUE(rows.m.row({}).is_zero());
    EXPECT_TRUE(rows.m.row({{kThird, {}}, {kOne, {}}}).is_zero());
    EXPECT_EQ(rows.graph.size(), 0U);
}

TEST(RowArithmetic, ARowOfOnePlainValueIsTheValue) {
    Rows rows;
    const Ref x = rows.m.load(0);
    const std::size_t size = rows.graph.size();
    EXPECT_EQ(rows.m.row({{kOne, x}}), x);
    EXPECT_EQ(rows.m.row({{kOne, x}, {kThird, {}}}), x);
    EXPECT_EQ(rows.graph.size(), size);
}

TEST(RowArithmetic, ARowOfAnOppositeIsTheOppositeAndCostsNothing) {
    Rows rows;
    const Ref x = rows.m.load(0);
    const std::size_t size = rows.graph.size();
    EXPECT_EQ(rows.m.row({{-kOne, x}}), -x);
    EXPECT_EQ(rows.graph.size(), size);
}

TEST(RowArithmetic, OperandsOfARowAreWidened) {
    Rows rows;
    rows.graph.store(rows.m.row({{kThird, rows.m.load(0)}, {kOne, rows.m.load(1)}}), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Widen), 2);
    for (kernelgen::NodeId id : rows.graph.live()) {
        const kernelgen::Node& n = rows.graph.node(id);
        if (n.op == Op::Add || n.op == Op::Mul) {
            EXPECT_EQ(n.type, Type::Binary64);
        }
    }
}

TEST(RowArithmetic, SumsOutsideOfRowsAreOfBinary32) {
    Rows rows;
    rows.graph.store(rows.m.add(rows.m.load(0), rows.m.load(1)), 0);
    EXPECT_EQ(rows.result({1, 0x1p-24}), 1);
}

TEST(RowArithmetic, ComplexValuesAreAddedByTheirParts) {
    Rows rows;
    const Ref a = rows.m.load(0);
    const Ref b = rows.m.load(1);
    const Ref c = rows.m.load(2);
    const Complex sum = rows.m.add(Complex{a, b}, Complex{c, {}});
    EXPECT_EQ(sum.re, rows.m.add(a, c));
    EXPECT_EQ(sum.im, b);
    const Complex difference = rows.m.sub(Complex{a, {}}, Complex{c, b});
    EXPECT_EQ(difference.re, rows.m.sub(a, c));
    EXPECT_EQ(difference.im, -b);
}

TEST(RowArithmetic, TheOnlyProductOfARowIsFound) {
    Rows rows;
    const Ref x = rows.m.load(0);
    const Ref product = rows.m.row({{kThird, x}});
    for (const Ref value : {product, -product}) {
        const dft_real::Term term = rows.m.only_product_of(value);
        EXPECT_EQ(term.constant.key(), kThird.key());
        EXPECT_EQ(term.value, value.negative ? -x : x);
    }
}

TEST(RowArithmetic, AValueThatIsNoSingleProductIsItsOwnProductWithOne) {
    Rows rows;
    const Ref x = rows.m.load(0);
    const Ref y = rows.m.load(1);
    for (const Ref value : {x, rows.m.add(x, y), rows.m.row({{kThird, x}, {kRoot, y}}), Ref{}}) {
        const dft_real::Term term = rows.m.only_product_of(value);
        EXPECT_TRUE(term.constant.is_one());
        EXPECT_EQ(term.value, value);
    }
}

TEST(RowArithmetic, DoublingIsAnExactProductOfBinary32) {
    Rows rows;
    const Ref doubled = rows.m.doubled(rows.m.load(0));
    EXPECT_EQ(rows.graph.node(doubled.id).type, Type::Binary32);
    rows.graph.store(doubled, 0);
    EXPECT_EQ(products(rows.graph), 1);
    EXPECT_EQ(rows.result({1.0 / 3}), 2 * static_cast<double>(static_cast<float>(1.0 / 3)));
    EXPECT_EQ(rows.result({std::numeric_limits<float>::denorm_min()}), 0x1p-148);
    EXPECT_EQ(rows.result({0x1p127}), std::numeric_limits<double>::infinity());
}

TEST(RowArithmetic, AnAbsentValueDoubledIsAbsent) {
    Rows rows;
    EXPECT_TRUE(rows.m.doubled({}).is_zero());
    EXPECT_EQ(rows.graph.size(), 0U);
}

TEST(RowArithmetic, TheEndOfARowTakesTheScaleFactorBeforeItIsRounded) {
    Rows rows;
    rows.m.store_scaled(rows.m.row({{kThird, rows.m.load(0)}, {kOne, rows.m.load(1)}}), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Round), 1);
    EXPECT_EQ(products(rows.graph), 2);
    const float scale = 1.0F / 7;
    std::mt19937 random(2);
    std::uniform_real_distribution<float> part(-1, 1);
    int unlike = 0;
    for (int i = 0; i < 1000; ++i) {
        const float a = part(random);
        const float b = part(random);
        const double row = kThird.to_binary64() * a + b;
        const auto wanted = static_cast<float>(row * scale);
        EXPECT_EQ(rows.result({a, b}, scale), wanted) << a << ", " << b;
        if (wanted != static_cast<float>(row) * scale) ++unlike;
    }
    EXPECT_GT(unlike, 0) << "no input tells one rounding from two";
}

TEST(RowArithmetic, ASumTakesTheScaleFactorInBinary32) {
    Rows rows;
    rows.m.store_scaled(rows.m.add(rows.m.load(0), rows.m.load(1)), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Round), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Widen), 0);
    const float third = 1.0F / 3;
    EXPECT_EQ(rows.result({third, 1}, 1.0F / 7), (third + 1.0F) * (1.0F / 7));
}

TEST(RowArithmetic, ANegativeSumIsScaledAndSubtractedFromZero) {
    Rows rows;
    rows.m.store_scaled(-rows.m.add(rows.m.load(0), rows.m.load(1)), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Sub), 1);
    EXPECT_EQ(rows.result({1, 2}, 0.5), -1.5);
    EXPECT_FALSE(std::signbit(rows.result({0, 0}))) << "a zero comes out as -0";
    EXPECT_FALSE(std::signbit(rows.result({1, -1}))) << "a zero comes out as -0";
}

TEST(RowArithmetic, ANegativeRowIsScaledAndSubtractedFromZeroInBinary64) {
    Rows rows;
    rows.m.store_scaled(-rows.m.row({{kThird, rows.m.load(0)}, {kOne, rows.m.load(1)}}), 0);
    EXPECT_EQ(number_of(rows.graph, Op::Sub), 1);
    EXPECT_EQ(number_of(rows.graph, Op::Round), 1);
    EXPECT_EQ(rows.result({1, 1}, 1), -static_cast<float>(1.0 / 3 + 1));
    EXPECT_FALSE(std::signbit(rows.result({0, 0}))) << "a zero comes out as -0";
}

TEST(RowArithmetic, APositiveValueIsStoredWithoutASum) {
    Rows rows;
    rows.m.store_scaled(rows.m.load(0), 0);
    EXPECT_EQ(sums(rows.graph), 0);
    EXPECT_TRUE(std::signbit(rows.result({-0.0})));
}

TEST(RowArithmetic, AStoredZeroIsPositiveWhateverTheScale) {
    Rows rows;
    rows.m.store_zero(0);
    EXPECT_FALSE(std::signbit(rows.result({}, -1)));
    EXPECT_EQ(rows.result({}, -1), 0);
    EXPECT_EQ(products(rows.graph), 0);
}

TEST(RowArithmetic, TheProductOfTwoConstantsIsThatOfTheirRoundedValues) {
    const Exact a = Exact::sine(1, 3);
    const double rounded = a.to_binary64() * a.to_binary64();
    ASSERT_NE(rounded, 0.75) << "the rounded product does not tell itself from the exact one";
    EXPECT_EQ(product_of_rounded(a, a).to_binary64(), rounded);
    EXPECT_LT(abs(kernelgen::Wide(product_of_rounded(a, a).value() - 0.75)),
              kernelgen::Wide("1e-50"))
        << "proofs take the exact product";
}

TEST(RowArithmetic, ProductsOfRoundedConstantsKeepTheirBits) {
    for (int j = 1; j < 64; ++j) {
        for (int k = 1; k < 64; ++k) {
            const Exact a = Exact::cosine(j, 131);
            const Exact b = Exact::sine(k, 127);
            EXPECT_EQ(product_of_rounded(a, b).to_binary64(), a.to_binary64() * b.to_binary64())
                << j << ", " << k;
        }
    }
}

}  // namespace
