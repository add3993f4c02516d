#include "transforms/walsh_hadamard/sequence.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

// The proof that sums are formed as in the reference sequence, and that it would see others.

namespace {

using namespace walsh_hadamard;

TEST(WalshHadamardSequence, IsThatOfEveryKernelSumBySum) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            EXPECT_EQ(sums_of_reference(order), sums_of_kernel(described_kernel(order, element)))
                << "order " << order << ", " << suffix(element);
    }
}

TEST(WalshHadamardSequence, EveryKernelIsProven) {
    for (Element element : kElements) {
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)
            EXPECT_NO_THROW(proven_kernel(order, element)) << order << ", " << suffix(element);
    }
}

// The matrix is the same for all of these, so only this proof tells them apart.
TEST(WalshHadamardSequence, IsNotThatOfDescendingStrides) {
    constexpr int kOrder = 3;
    kernelgen::Graph graph;
    std::vector<kernelgen::Ref> v;
    for (int i = 0; i < 8; ++i) v.push_back(graph.load(kernelgen::Type::Binary32, i));
    for (std::size_t h = 4; h > 0; h /= 2) {
        for (std::size_t j = 0; j < 8; ++j) {
            if ((j & h) != 0) continue;
            const kernelgen::Ref a = v[j];
            const kernelgen::Ref b = v[j + h];
            v[j] = graph.add(a, b);
            v[j + h] = graph.sub(a, b);
        }
    }
    const kernelgen::Ref scale = graph.scale(kernelgen::Type::Binary32);
    for (int i = 0; i < 8; ++i) graph.store(graph.mul(v[static_cast<std::size_t>(i)], scale), i);
    Kernel kernel = described_kernel(kOrder, Element::Real32);
    EXPECT_EQ(sums_of_reference(kOrder), sums_of_kernel(kernel));
    kernel.bodies[0].graph = graph;
    EXPECT_NE(sums_of_reference(kOrder), sums_of_kernel(kernel));
}

TEST(WalshHadamardSequence, NeedsTheProduct) {
    Kernel kernel = described_kernel(4, Element::Real32);
    kernel.bodies[0].graph = row_body(Element::Real32, 4, Scaling::None);
    EXPECT_NE(sums_of_reference(4), sums_of_kernel(kernel));
}

TEST(WalshHadamardSequence, SeesAPassThatLeavesItsArray) {
    Kernel kernel = described_kernel(8, Element::Real32);
    kernel.bodies[1].graph = column_body(Element::Real32, 3, 64, Scaling::Last);
    EXPECT_THROW(sums_of_kernel(kernel), std::out_of_range);
}

/** What the proof says of a kernel one of whose bodies was replaced. */
std::string complaint(int order, std::size_t body, const kernelgen::Graph& graph) {
    Kernel kernel = described_kernel(order, Element::Real32);
    kernel.bodies[body].graph = graph;
    try {
        prove(kernel);
    } catch (const std::exception& error) {
        return error.what();
    }
    return "none";
}

// Order 12 has rows of 64 elements, middle columns of 8 vectors and final columns of 8.
TEST(WalshHadamardProof, IsOfTheColumnBodiesThatAreEmitted) {
    const auto wrong_product = [](int stages, int stride) {
        kernelgen::Graph graph = column_body(Element::Real32, stages, stride, Scaling::None);
        const auto first = graph.load(kernelgen::Type::Binary32x4, 0);
        graph.store(first, 0);
        return graph;
    };
    EXPECT_EQ("none", complaint(12, 1, column_body(Element::Real32, 3, 64, Scaling::None)));
    EXPECT_NE(std::string::npos, complaint(12, 1, wrong_product(3, 64)).find("middle_columns"));
    EXPECT_NE(std::string::npos, complaint(12, 2, wrong_product(3, 512)).find("final_columns"));
    EXPECT_NE(std::string::npos,
              complaint(12, 1, column_body(Element::Real32, 3, 32, Scaling::None))
                  .find("middle_columns"));
}

TEST(Expressions, OfSumsDoNotDependOnTheOrderOfTheirTermsAndThoseOfDifferencesDo) {
    const Expression a = Expression::input(0);
    const Expression b = Expression::input(1);
    EXPECT_EQ(Expression::sum(a, b), Expression::sum(b, a));
    EXPECT_NE(Expression::difference(a, b), Expression::difference(b, a));
    EXPECT_NE(Expression::sum(a, b), Expression::difference(a, b));
    EXPECT_NE(Expression::sum(a, a), Expression::sum(a, b));
}

TEST(Expressions, OfSumsDependOnHowTheyAreGrouped) {
    const Expression a = Expression::input(0);
    const Expression b = Expression::input(1);
    const Expression c = Expression::input(2);
    EXPECT_NE(Expression::sum(Expression::sum(a, b), c), Expression::sum(a, Expression::sum(b, c)));
}

}  // namespace
