#include "transforms/dft_complex/small_transforms/dft_over_reals.hpp"

#include <gtest/gtest.h>

#include <map>

#include "kernelgen/graph/counts.hpp"
#include "kernelgen/proof/proof.hpp"

namespace {

using dft_complex::ComplexVector;
using dft_complex::P;
using dft_complex::Points;
using dft_complex::RealDft;
using dft_complex::Rule;
using dft_complex::small;
using dft_complex::SmallForm;
using dft_complex::T;
using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::Ref;
using kernelgen::Type;
using kernelgen::Wide;

constexpr Type kScalar = Type::Binary64;

struct Case {
    const char* name;
    Rule rule;
};

void PrintTo(const Case& of, std::ostream* out) {
    *out << of.name;
}

std::vector<Case> cases() {
    const Rule n2 = small(2), n3 = small(3), n4 = small(4), n7 = small(7), n8 = small(8);
    const Rule h5 = small(5, SmallForm::HalfSumOfTwo);
    return {{"Two", n2},
            {"Four", n4},
            {"TwoByThree", P(n2, n3)},
            {"FourByThree", P(n4, n3)},
            {"TwoByEight", T(n2, n8)},
            {"TwoByNine", P(n2, T(n3, n3))},
            {"TwoByEleven", P(n2, small(11))},
            {"TwoByHalfSumOfFiveByThree", P(P(n2, h5), n3)},
            {"FourBySeven", P(n4, n7)},
            {"FourByPrime13", P(n4, small(13))},
            {"SplitRadix16", dft_complex::S(16)}};
}

/** Every value a scalar, so that a graph of scalars is the matrix of the real DFT. */
struct Scalars {
    Graph graph;
    std::unique_ptr<dft_complex::ComplexAlgebra> algebra =
        make_algebra(graph, kScalar, dft_complex::Layout::Split, false);

    ComplexVector load(int element) { return {graph.load(kScalar, element), {}}; }

    /** Stores the value without its sign, which is returned. */
    int store(const ComplexVector& value, int element) {
        graph.store({value.re.id}, element);
        return value.re.negative ? -1 : 1;
    }
};

/** Row of the even value of frequency k, and of the odd one, 0 < k < L/2. */
int even_row(int k) {
    return k;
}
int odd_row(int k, int length) {
    return length / 2 + k;
}

Wide trigonometric(int row, int j, int length) {
    const int half = length / 2;
    return row <= half ? Exact::cosine(static_cast<long>(j) * row, length).value()
                       : Exact::sine(static_cast<long>(j) * (row - half), length).value();
}

Wide factor_of(const RealDft& dft, int row) {
    const int half = dft.length() / 2;
    return row <= half ? dft.even_factor(row).value() : dft.odd_factor(row - half).value();
}

struct Forward {
    Graph graph;
    std::vector<int> signs;  ///< by row
};

Forward lay_out_forward(const RealDft& dft) {
    Scalars s;
    Points u;
    for (int j = 0; j < dft.length(); ++j) u.push_back(s.load(j));
    const auto spectrum = dft.forward(*s.algebra, u);
    Forward forward;
    const int half = dft.length() / 2;
    for (int k = 0; k <= half; ++k)
        forward.signs.push_back(s.store(spectrum.even.at(static_cast<std::size_t>(k)), k));
    for (int k = 1; k < half; ++k)
        forward.signs.push_back(
            s.store(spectrum.odd.at(static_cast<std::size_t>(k)), odd_row(k, dft.length())));
    forward.graph = std::move(s.graph);
    return forward;
}

Graph lay_out_transposed(const RealDft& dft) {
    Scalars s;
    const int half = dft.length() / 2;
    RealDft::HalfSpectrum spectrum{Points(static_cast<std::size_t>(half + 1)),
                                   Points(static_cast<std::size_t>(half + 1))};
    for (int k = 0; k <= half; ++k)
        spectrum.even[static_cast<std::size_t>(k)] = s.load(even_row(k));
    for (int k = 1; k < half; ++k)
        spectrum.odd[static_cast<std::size_t>(k)] = s.load(odd_row(k, dft.length()));
    const Points r = dft.transposed(*s.algebra, spectrum);
    for (int j = 0; j < dft.length(); ++j) {
        const Ref value = r.at(static_cast<std::size_t>(j)).re;
        s.graph.store(value.negative ? s.graph.flip(-value, {1}) : value, j);
    }
    return std::move(s.graph);
}

class RealDftOf : public testing::TestWithParam<Case> {};

TEST_P(RealDftOf, GivesCosineAndSineSumsUpToItsFactors) {
    const RealDft dft(GetParam().rule);
    const int length = dft.length();
    const Forward forward = lay_out_forward(dft);
    const Wide deviation =
        kernelgen::deviation(forward.graph, length, length, [&](int row, int j) -> Wide {
            return forward.signs[static_cast<std::size_t>(row)] * trigonometric(row, j, length) /
                   factor_of(dft, row);
        });
    EXPECT_LT(deviation, Wide("1e-40")) << "length " << length;
}

// The matrix of the way back is the one of the way forth, transposed, so what the factors leave out
// of the one they leave out of the other.
TEST_P(RealDftOf, GivesTheTransposedSumsUpToTheSameFactors) {
    const RealDft dft(GetParam().rule);
    const int length = dft.length();
    const Wide deviation =
        kernelgen::deviation(lay_out_transposed(dft), length, length, [&](int j, int row) -> Wide {
            return trigonometric(row, j, length) / factor_of(dft, row);
        });
    EXPECT_LT(deviation, Wide("1e-40")) << "length " << length;
}

TEST_P(RealDftOf, HasNoOddValueAtTheFirstAndTheLastFrequency) {
    const RealDft dft(GetParam().rule);
    Scalars s;
    Points u;
    for (int j = 0; j < dft.length(); ++j) u.push_back(s.load(j));
    const auto spectrum = dft.forward(*s.algebra, u);
    EXPECT_TRUE(spectrum.odd.front().is_zero());
    EXPECT_TRUE(spectrum.odd.back().is_zero());
}

TEST_P(RealDftOf, HasNoFactorAtFrequencyZero) {
    EXPECT_TRUE(RealDft(GetParam().rule).even_factor(0).is_one());
}

/** Products all of whose users are one other product. */
std::vector<NodeId> products_for_one_product(const Graph& graph) {
    std::map<NodeId, std::vector<NodeId>> users;
    for (NodeId id : graph.live()) {
        for (NodeId operand : operands(graph.node(id))) users[operand].push_back(id);
    }
    std::vector<NodeId> found;
    for (const auto& [id, by] : users) {
        if (graph.node(id).op == Op::Mul && by.size() == 1 && graph.node(by.front()).op == Op::Mul)
            found.push_back(id);
    }
    return found;
}

TEST_P(RealDftOf, HoldsNoProductThatOnlyAnotherProductUses) {
    const RealDft dft(GetParam().rule);
    EXPECT_EQ(products_for_one_product(lay_out_forward(dft).graph), std::vector<NodeId>{})
        << "forward";
    EXPECT_EQ(products_for_one_product(lay_out_transposed(dft)), std::vector<NodeId>{})
        << "transposed";
}

// A product at an output leaves only by a factor, which whoever scales the spectrum takes up.
TEST_P(RealDftOf, EndsInNoProductThatNothingElseUses) {
    const Graph graph = lay_out_forward(RealDft(GetParam().rule)).graph;
    std::map<NodeId, int> users;
    for (NodeId id : graph.live()) {
        for (NodeId operand : operands(graph.node(id))) ++users[operand];
    }
    for (NodeId store : graph.stores()) {
        const NodeId value = graph.node(store).a;
        EXPECT_FALSE(graph.node(value).op == Op::Mul && users[value] == 1)
            << "output " << graph.node(store).offset;
    }
}

// Turning the edges round keeps the products, and a node of n users becomes n - 1 sums.
TEST_P(RealDftOf, CostsTheSameProductsBothWays) {
    const RealDft dft(GetParam().rule);
    EXPECT_EQ(kernelgen::count(lay_out_forward(dft).graph, false).products,
              kernelgen::count(lay_out_transposed(dft), false).products);
}

INSTANTIATE_TEST_SUITE_P(Rule, RealDftOf, testing::ValuesIn(cases()),
                         [](const auto& of) { return of.param.name; });

}  // namespace
