#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

#include <gtest/gtest.h>

#include <map>

#include "kernelgen/graph/counts.hpp"
#include "tests/dft_complex/white_box/support/laid_out_transform.hpp"
#include "transforms/dft_complex/decompositions/network.hpp"

namespace {

using dft_complex::ComplexAlgebra;
using dft_complex::conjugate_pairs;
using dft_complex::Factors;
using dft_complex::Points;
using dft_complex::small_transform;
using dft_complex::SmallForm;
using dft_complex::SmallTransform;
using dft_complex_test::Arrangement;
using dft_complex_test::in_words;
using dft_complex_test::kArrangements;
using dft_complex_test::lay_out;
using dft_complex_test::Transformation;
using kernelgen::Exact;
using kernelgen::ExactComplex;
using kernelgen::Wide;

const Wide kNothing("1e-40");

ExactComplex of_the_dft(int k, int n, int length) {
    return ExactComplex::forward_root(static_cast<long>(k) * n, length);
}

void expect_dft(const Arrangement& arrangement, int length, const Transformation& transform) {
    const auto graph = lay_out(arrangement, length, transform);
    const Wide deviation = deviation_of(graph, arrangement, length, length, [&](int k, int n, int) {
        return of_the_dft(k, n, length);
    });
    EXPECT_LT(deviation, kNothing)
        << "length " << length << ", " << arrangement.name << ": " << in_words(deviation);
}

void expect_dft_in_all_arrangements(int length, const Transformation& transform) {
    for (const Arrangement& arrangement : kArrangements) expect_dft(arrangement, length, transform);
}

Transformation of_radix(int radix, SmallForm form = SmallForm::Usual) {
    return [=](ComplexAlgebra& m, const Points& x) { return small_transform(m, radix, form, x); };
}

TEST(SmallTransforms, EachUsualFormEqualsTheDefinition) {
    for (int radix : {2, 3, 4, 5, 7, 8, 11}) expect_dft_in_all_arrangements(radix, of_radix(radix));
}

TEST(SmallTransforms, ThePlainSumOfTwoAddsThem) {
    for (const Arrangement& arrangement : kArrangements) {
        const auto graph = lay_out(arrangement, 2, of_radix(SmallTransform::kSum));
        const Wide deviation =
            deviation_of(graph, arrangement, 2, 1, [](int, int, int) { return ExactComplex{}; });
        EXPECT_LT(deviation, kNothing) << arrangement.name << ": " << in_words(deviation);
    }
}

TEST(SmallTransforms, FiveByTheHalfSumOfItsCosinesEqualsTheDefinition) {
    expect_dft_in_all_arrangements(5, of_radix(5, SmallForm::HalfSumOfTwo));
}

TEST(SmallTransforms, SevenByRadersFormEqualsTheDefinition) {
    expect_dft_in_all_arrangements(7, of_radix(7, SmallForm::RaderOfSeven));
    expect_dft_in_all_arrangements(7, dft_complex::seven_by_rader);
}

TEST(SmallTransforms, TheDirectFormOfAnOddPrimeEqualsTheDefinition) {
    for (int p : {3, 5, 7, 11, 13}) expect_dft_in_all_arrangements(p, dft_complex::direct_form);
}

class RaderOverReals : public testing::TestWithParam<int> {};

TEST_P(RaderOverReals, EqualsTheDefinitionForwardAndBackward) {
    for (const Arrangement& arrangement : kArrangements) {
        if (arrangement.type == kernelgen::Type::Binary64x2)
            expect_dft(arrangement, GetParam(), dft_complex::rader_over_reals);
    }
}

TEST_P(RaderOverReals, IsTheUsualFormOfItsPrime) {
    const Arrangement& arrangement = kArrangements[3];
    const auto usual = lay_out(arrangement, GetParam(), of_radix(GetParam()));
    const auto rader = lay_out(arrangement, GetParam(), dft_complex::rader_over_reals);
    ASSERT_EQ(usual.size(), rader.size());
    for (std::size_t id = 0; id < usual.size(); ++id) {
        const auto node = static_cast<kernelgen::NodeId>(id);
        ASSERT_TRUE(usual.node(node) == rader.node(node)) << "node " << id;
    }
}

INSTANTIATE_TEST_SUITE_P(OfPrime, RaderOverReals,
                         testing::Values(13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53, 59, 61),
                         testing::PrintToStringParamName());

TEST(SmallTransforms, RaderOverRealsEqualsTheDefinitionInEveryLaneOfSplitVectors) {
    for (int p : {13, 17, 31}) expect_dft(kArrangements[0], p, dft_complex::rader_over_reals);
}

/** Another angle for each lane, conjugate at j and p - j, 1 at 0. */
std::vector<Factors> conjugate_factors(int p, int transforms) {
    std::vector<Factors> factors;
    for (int j = 0; j < p; ++j) {
        Factors of_point;
        for (int t = 0; t < transforms; ++t)
            of_point.push_back(
                ExactComplex::forward_root(2 * j < p ? (t + 1) * j : (t + 1) * (j - p), 9 * p));
        factors.push_back(of_point);
    }
    return factors;
}

struct FoldedTransform {
    int length;
    SmallForm form;
};

class ConjugateFactors : public testing::TestWithParam<FoldedTransform> {};

TEST_P(ConjugateFactors, AreTakenIntoTheTransform) {
    const int p = GetParam().length;
    const SmallForm form = GetParam().form;
    for (const Arrangement& arrangement : kArrangements) {
        const auto factors = conjugate_factors(p, arrangement.transforms());
        const auto graph = lay_out(arrangement, p, [&](ComplexAlgebra& m, const Points& x) {
            return with_conjugate_factors(m, x, factors, form);
        });
        const Wide deviation = deviation_of(graph, arrangement, p, p, [&](int k, int n, int t) {
            return of_the_dft(k, n, p) *
                   factors[static_cast<std::size_t>(n)][static_cast<std::size_t>(t)];
        });
        EXPECT_LT(deviation, kNothing)
            << "length " << p << ", " << arrangement.name << ": " << in_words(deviation);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, ConjugateFactors,
                         testing::Values(FoldedTransform{3, SmallForm::Usual},
                                         FoldedTransform{5, SmallForm::Usual},
                                         FoldedTransform{5, SmallForm::HalfSumOfTwo},
                                         FoldedTransform{7, SmallForm::Usual}),
                         [](const auto& info) {
                             const bool usual = info.param.form == SmallForm::Usual;
                             return std::to_string(info.param.length) + (usual ? "" : "HalfSum");
                         });

TEST(SmallTransforms, ConjugatePairsAreKnownInEveryLane) {
    for (int p : {3, 5, 7}) {
        EXPECT_TRUE(conjugate_pairs(conjugate_factors(p, 2))) << p;
        auto one_wrong = conjugate_factors(p, 2);
        one_wrong.back()[1] = ExactComplex::forward_root(1, 4);
        EXPECT_FALSE(conjugate_pairs(one_wrong)) << p;
    }
}

TEST(SmallTransforms, FactorsThatAreAllOneAreNoConjugatePairs) {
    EXPECT_FALSE(conjugate_pairs(std::vector<Factors>(3, Factors(2))));
}

TEST(SmallTransforms, AFactorOfTheFirstPointSpoilsConjugatePairs) {
    auto factors = conjugate_factors(3, 2);
    factors.front()[1] = ExactComplex::forward_root(1, 4);
    EXPECT_FALSE(conjugate_pairs(factors));
}

TEST(SmallTransforms, AnEvenNumberOfPointsHasNoConjugatePairs) {
    const ExactComplex w = ExactComplex::forward_root(1, 8);
    const ExactComplex back = ExactComplex::forward_root(-1, 8);
    EXPECT_FALSE(conjugate_pairs({{ExactComplex{}}, {w}, {ExactComplex{}}, {back}}));
}

/** Sums and products of a split group, by length. */
using Cost = std::pair<int, int>;

Cost cost_of(int length, const Transformation& transform) {
    const auto c = kernelgen::count(lay_out(kArrangements[0], length, transform), true);
    return {c.sums + c.differences, c.products};
}

TEST(SmallTransforms, ASplitGroupTakesTheKnownRealOperations) {
    const std::map<int, Cost> wanted = {{2, {4, 0}},   {3, {12, 4}}, {4, {16, 0}},    {5, {32, 16}},
                                        {7, {60, 36}}, {8, {52, 4}}, {11, {140, 100}}};
    for (const auto& [radix, cost] : wanted)
        EXPECT_EQ(cost_of(radix, of_radix(radix)), cost) << "length " << radix;
}

TEST(SmallTransforms, TheHalfSumOfTheCosinesOfFiveSparesFourRealProducts) {
    EXPECT_EQ(cost_of(5, of_radix(5, SmallForm::HalfSumOfTwo)), Cost(32, 12));
}

TEST(SmallTransforms, ConjugateFactorsSpareTwoProductsOfThreePoints) {
    const auto factors = conjugate_factors(3, 4);
    const auto transform = [&](ComplexAlgebra& m, const Points& x) {
        return with_conjugate_factors(m, x, factors, SmallForm::Usual);
    };
    EXPECT_EQ(cost_of(3, transform), Cost(16, 10));
}

}  // namespace
