#include "transforms/dft_real/kernels/precision.hpp"

#include <gtest/gtest.h>

#include <random>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "tests/dft_real/white_box/support/network_shape.hpp"
#include "transforms/dft_real/decompositions/row_arithmetic.hpp"

namespace {

using dft_real::Exact;
using dft_real::Graph;
using dft_real::in_binary64;
using dft_real::Ref;
using dft_real::RowArithmetic;
using dft_real::Type;
using dft_real::with_products_joined;
using dft_real::with_wide_sums;
using dft_real_test::constants;
using dft_real_test::number_of;
using dft_real_test::products;
using dft_real_test::sums;
using kernelgen::Op;

const Exact kOne = Exact::rational(1);
const Exact kHalf = Exact::rational(1, 2);
const Exact kThird = Exact::rational(1, 3);
const Exact kRoot = Exact::square_root(2);
const Exact kSine = Exact::sine(1, 3);

double rounded_product(const Exact& a, const Exact& b) {
    return a.to_binary64() * b.to_binary64();
}

/** Both graphs have the same nodes. */
void expect_unchanged(const Graph& graph) {
    const Graph joined = with_products_joined(graph);
    EXPECT_EQ(products(joined), products(graph));
    EXPECT_EQ(sums(joined), sums(graph));
    EXPECT_EQ(number_of(joined, Op::Round), number_of(graph, Op::Round));
    EXPECT_EQ(constants(joined), constants(graph));
}

TEST(JoinedProducts, ARowOfOneProductHandsItsConstantToTheProductOfARow) {
    Graph graph;
    RowArithmetic m(graph);
    graph.store(m.row({{kRoot, m.row({{kThird, m.load(0)}})}}), 0);
    const Graph joined = with_products_joined(graph);
    EXPECT_EQ(products(joined), 1);
    EXPECT_EQ(number_of(joined, Op::Round), 1);
    EXPECT_EQ(constants(joined), std::vector<double>{rounded_product(kThird, kRoot)});
}

TEST(JoinedProducts, ARowOfSeveralProductsTakesTheConstantInEach) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}, {-kSine, m.load(1)}});
    graph.store(m.row({{kRoot, row}}), 0);
    const Graph joined = with_products_joined(graph);
    EXPECT_EQ(products(joined), 2);
    EXPECT_EQ(number_of(joined, Op::Sub), 1);
    EXPECT_EQ(number_of(joined, Op::Round), 1);
    // The last product first, whatever order a compiler gives the arguments of a call.
    EXPECT_EQ(constants(joined),
              (std::vector<double>{rounded_product(kSine, kRoot), rounded_product(kThird, kRoot)}));
}

TEST(JoinedProducts, ADoubledInputHandsItsTwoToTheProductOfARow) {
    Graph graph;
    RowArithmetic m(graph);
    graph.store(m.row({{kSine, m.doubled(m.load(0))}}), 0);
    const Graph joined = with_products_joined(graph);
    EXPECT_EQ(products(joined), 1);
    EXPECT_EQ(constants(joined), std::vector<double>{2 * kSine.to_binary64()});
    EXPECT_EQ(joined.node(joined.live().back()).op, Op::Store);
}

TEST(JoinedProducts, ADoubledInputDoesNotOverflowOnceItsTwoIsJoined) {
    Graph graph;
    RowArithmetic m(graph);
    graph.store(m.row({{kThird, m.doubled(m.load(0))}}), 0);
    const Graph joined = with_products_joined(graph);
    EXPECT_EQ(kernelgen::interpret(joined, {0x1p127}, 1, 1).front(),
              static_cast<float>(0x1p128 * kThird.to_binary64()));
}

TEST(JoinedProducts, ARowOfProductsThatIsUsedTwiceStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}});
    graph.store(m.row({{kRoot, row}}), 0);
    graph.store(m.row({{kSine, row}}), 1);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ARowOfProductsThatIsStoredAsWellStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}});
    graph.store(m.row({{kRoot, row}}), 0);
    graph.store(row, 1);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ADoubledInputThatIsUsedTwiceStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref doubled = m.doubled(m.load(0));
    graph.store(m.row({{kSine, doubled}}), 0);
    graph.store(m.add(doubled, m.load(1)), 1);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ARowWithAPlainValueStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}, {kOne, m.load(1)}});
    graph.store(m.row({{kRoot, row}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ASumOfRowsStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref sum = m.add(m.row({{kThird, m.load(0)}}), m.row({{kSine, m.load(1)}}));
    graph.store(m.row({{kRoot, sum}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ARowThatIsOneOfSeveralProductsStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}});
    graph.store(m.row({{kRoot, row}, {kSine, m.load(1)}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ARowBesideAPlainValueStays) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref row = m.row({{kThird, m.load(0)}});
    graph.store(m.row({{kRoot, row}, {kOne, m.load(1)}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ADoubledInputThatIsOneOfSeveralProductsStays) {
    Graph graph;
    RowArithmetic m(graph);
    graph.store(m.row({{kRoot, m.doubled(m.load(0))}, {kSine, m.load(1)}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, ARowThatTakesTheScaleFactorStays) {
    Graph graph;
    RowArithmetic m(graph);
    m.store_scaled(m.row({{kThird, m.load(0)}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, AProductThatTakesTheScaleFactorIsJoinedBeforeIt) {
    Graph graph;
    RowArithmetic m(graph);
    m.store_scaled(m.row({{kRoot, m.add(m.load(0), m.load(1))}, {kSine, m.load(2)}}), 0);
    expect_unchanged(graph);
}

TEST(JoinedProducts, SumsInBinary32Stay) {
    Graph graph;
    RowArithmetic m(graph);
    const Ref sum = m.add(m.load(0), m.load(1));
    m.store_scaled(m.sub(sum, m.load(2)), 0);
    m.store_zero(1);
    expect_unchanged(graph);
}

/** A three-point butterfly of a and b whose sum goes on to the product by sin(2 pi / 3). */
struct Butterfly {
    Graph graph;
    RowArithmetic m{graph};
    Ref a = m.load(0);
    Ref b = m.load(1);

    void store_row_with_half() { graph.store(m.row({{kOne, a}, {-kHalf, b}}), 0); }
    void store_product_of(Ref sum) { graph.store(m.row({{kSine, sum}}), 1); }

    /** Widened values, and rounded ones. */
    int conversions(const Graph& of) const {
        return number_of(of, Op::Widen) + number_of(of, Op::Round);
    }
    void expect_sum_in_binary32() {
        EXPECT_EQ(conversions(with_wide_sums(graph)), conversions(graph));
        EXPECT_EQ(sums(with_wide_sums(graph)), sums(graph));
    }
};

TEST(WideSums, TheSumIsNotRoundedBeforeItsProduct) {
    Butterfly butterfly;
    butterfly.store_row_with_half();
    butterfly.store_product_of(butterfly.m.add(butterfly.a, butterfly.b));
    const float a = 0x1.000002p0F;
    const float b = 0x1.8p-24F;
    const auto result = kernelgen::interpret(with_wide_sums(butterfly.graph), {a, b}, 1, 2);
    EXPECT_EQ(result[1], static_cast<float>(kSine.to_binary64() * (double{a} + double{b})));
    EXPECT_NE(result[1], static_cast<float>(kSine.to_binary64() * double{a + b}));
}

TEST(WideSums, TheSumCostsNoConversionOfItsOwn) {
    Butterfly butterfly;
    butterfly.store_row_with_half();
    butterfly.store_product_of(butterfly.m.add(butterfly.a, butterfly.b));
    const Graph wide = with_wide_sums(butterfly.graph);
    EXPECT_EQ(butterfly.conversions(wide), butterfly.conversions(butterfly.graph) - 1);
    EXPECT_EQ(sums(wide), sums(butterfly.graph));
    EXPECT_EQ(products(wide), products(butterfly.graph));
}

TEST(WideSums, ADifferenceIsTreatedAlike) {
    Butterfly butterfly;
    butterfly.store_row_with_half();
    butterfly.store_product_of(butterfly.m.sub(butterfly.b, butterfly.a));
    const auto result = kernelgen::interpret(with_wide_sums(butterfly.graph), {1, 0x1.8p-24}, 1, 2);
    EXPECT_EQ(result[1], static_cast<float>(kSine.to_binary64() * (0x1.8p-24 - 1)));
}

TEST(WideSums, WithoutTheRowTheSumStaysInBinary32) {
    Butterfly butterfly;
    butterfly.store_product_of(butterfly.m.add(butterfly.a, butterfly.b));
    butterfly.expect_sum_in_binary32();
}

TEST(WideSums, ASumThatIsStoredAsWellStaysInBinary32) {
    Butterfly butterfly;
    butterfly.store_row_with_half();
    const Ref sum = butterfly.m.add(butterfly.a, butterfly.b);
    butterfly.store_product_of(sum);
    butterfly.graph.store(sum, 2);
    butterfly.expect_sum_in_binary32();
}

TEST(WideSums, ASumThatMeetsAnotherConstantStaysInBinary32) {
    Butterfly butterfly;
    butterfly.store_row_with_half();
    butterfly.graph.store(butterfly.m.row({{kRoot, butterfly.m.add(butterfly.a, butterfly.b)}}), 1);
    butterfly.expect_sum_in_binary32();
}

/** A network of rows within rows, sums, a doubling and a stored zero. */
Graph some_network() {
    Graph graph;
    RowArithmetic m(graph);
    const Ref x = m.load(0);
    const Ref y = m.doubled(m.load(1));
    const Ref row = m.row({{kThird, m.add(x, y)}, {kOne, m.load(2)}});
    m.store_scaled(m.row({{kSine, row}, {-kRoot, m.sub(x, y)}}), 0);
    m.store_scaled(-m.add(row, y), 1);
    m.store_zero(2);
    return graph;
}

TEST(Binary64, HasNoConversions) {
    const Graph wide = in_binary64(some_network());
    EXPECT_EQ(number_of(wide, Op::Widen), 0);
    EXPECT_EQ(number_of(wide, Op::Round), 0);
}

TEST(Binary64, HasNodesOfBinary64Alone) {
    const Graph wide = in_binary64(some_network());
    for (kernelgen::NodeId id : wide.live())
        EXPECT_EQ(wide.node(id).type, Type::Binary64) << "node " << id;
}

TEST(Binary64, HasTheArithmeticOfTheNetwork) {
    const Graph graph = some_network();
    const Graph wide = in_binary64(graph);
    for (const Op op : {Op::Add, Op::Sub, Op::Mul, Op::Load, Op::Store})
        EXPECT_EQ(number_of(wide, op), number_of(graph, op))
            << "operation " << static_cast<int>(op);
}

TEST(Binary64, RoundsEveryOperationToBinary64) {
    const Graph wide = in_binary64(some_network());
    std::mt19937 random(3);
    std::uniform_real_distribution<double> part(-1, 1);
    for (int i = 0; i < 100; ++i) {
        const double a = part(random);
        const double b = part(random);
        const double c = part(random);
        const double scale = 1.0 / 7;
        const double y = 2 * b;
        const double product = kThird.to_binary64() * (a + y);
        const double row = product + c;
        const double first = kSine.to_binary64() * row;
        const double second = kRoot.to_binary64() * (a - y);
        const double sum = first - second;
        const auto result = kernelgen::interpret(wide, {a, b, c}, scale, 3);
        EXPECT_EQ(result, (std::vector<double>{sum * scale, 0 - (row + y) * scale, 0}));
    }
}

}  // namespace
