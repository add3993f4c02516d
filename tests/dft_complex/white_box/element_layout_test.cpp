#include "transforms/dft_complex/layouts/element_layout.hpp"

#include <gtest/gtest.h>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/proof.hpp"
#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/network_evaluation.hpp"

namespace {

using dft_complex::ConjugateFactors;
using dft_complex::Direction;
using dft_complex::Network;
using dft_complex::Points;
using dft_complex::Rule;
using dft_complex::small;
using dft_complex::T;
using kernelgen::ExactComplex;
using kernelgen::Graph;
using kernelgen::Op;
using kernelgen::Type;
using kernelgen::Wide;

TEST(ElementLayout, AnElementIsOneVectorAtTwiceItsIndex) {
    Graph graph;
    const auto element = dft_complex::load_element(graph, 3);
    EXPECT_TRUE(element.im.is_zero());
    const kernelgen::Node& n = graph.node(element.re.id);
    EXPECT_EQ(n.op, Op::Load);
    EXPECT_EQ(n.type, Type::Binary64x2);
    EXPECT_EQ(n.offset, 6);
}

TEST(ElementLayout, AStoredElementIsScaledOnce) {
    Graph graph;
    store_element(graph, dft_complex::load_element(graph, 3), 5);
    const kernelgen::Node& store = graph.node(graph.stores().front());
    EXPECT_EQ(store.op, Op::Store);
    EXPECT_EQ(store.offset, 10);
    const kernelgen::Node& product = graph.node(store.a);
    EXPECT_EQ(product.op, Op::Mul);
    EXPECT_EQ(graph.node(product.a).op, Op::Load);
    EXPECT_EQ(graph.node(product.b).op, Op::Scale);
}

TEST(ElementLayout, AMinusThatNoSumTookUpIsAppliedToBothParts) {
    Graph graph;
    auto element = dft_complex::load_element(graph, 0);
    element.re = -element.re;
    store_element(graph, element, 0);
    const Wide deviation = kernelgen::deviation(
        graph, 2, 2, [](int row, int column) -> Wide { return row == column ? -1 : 0; });
    EXPECT_EQ(deviation, Wide(0));
}

Graph laid_out(const Rule& rule, Direction direction) {
    Network network;
    const auto outputs = dft(network, rule, network.input(rule.length));
    return lay_out_by_elements(network, outputs, direction);
}

TEST(ElementLayout, ANetworkIsTheTransformOfItsDirection) {
    const Rule rule = T(small(4), small(3));
    for (Direction direction : dft_complex::kDirections) {
        const auto entry = [&](int row, int column) -> Wide {
            const long turns = static_cast<long>(row / 2) * (column / 2);
            const auto w = ExactComplex::forward_root(
                direction == Direction::Forward ? turns : -turns, rule.length);
            if (row % 2 == column % 2) return w.re.value();
            return row % 2 == 0 ? Wide(-w.im.value()) : w.im.value();
        };
        const Wide deviation = kernelgen::deviation(laid_out(rule, direction), 24, 24, entry);
        EXPECT_LT(deviation, Wide("1e-40"))
            << (direction == Direction::Forward ? "forward" : "inverse");
    }
}

int products(const Rule& rule, ConjugateFactors conjugate_factors) {
    Network network;
    const auto outputs = dft(network, rule, network.input(rule.length));
    Graph graph;
    const auto algebra =
        make_algebra(graph, Type::Binary64x2, dft_complex::Layout::Interleaved, false);
    Points x;
    for (int n = 0; n < rule.length; ++n) x.push_back(dft_complex::load_element(graph, n));
    const Points y = evaluate(*algebra, network, x, outputs, conjugate_factors);
    for (int k = 0; k < rule.length; ++k) store_element(graph, y[static_cast<std::size_t>(k)], k);
    return kernelgen::count(graph, false).products - rule.length;
}

// A pair of factors takes four packed products either way; folding spares the sine of each of the
// two transforms of three points that have factors.
TEST(ElementLayout, FoldingConjugateFactorsSparesAProductForEachTransformOfThree) {
    const Rule nine = T(small(3), small(3));
    EXPECT_EQ(products(nine, ConjugateFactors::Apart) - products(nine, ConjugateFactors::Folded),
              2);
}

TEST(ElementLayout, LayoutsFoldConjugateFactors) {
    const Rule nine = T(small(3), small(3));
    EXPECT_EQ(kernelgen::count(laid_out(nine, Direction::Forward), false).products - 9,
              products(nine, ConjugateFactors::Folded));
}

}  // namespace
