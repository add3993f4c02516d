#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/dft_complex/white_box/support/all_kernels.hpp"
#include "tests/dft_complex/white_box/support/constants_of_graph.hpp"
#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/layouts/element_layout.hpp"

// Which constants a kernel's rule lets it hold.

namespace {

using dft_complex::ExactComplex;
using dft_complex::Rule;
using dft_complex::SmallForm;
using dft_complex_test::describe;
using dft_complex_test::Direction;
using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::kDirections;
using dft_complex_test::kElements;
using dft_complex_test::Kernel;
using dft_complex_test::magnitude_of;
using dft_complex_test::Magnitudes;
using dft_complex_test::magnitudes;
using dft_complex_test::roots;
using dft_complex_test::rounded_magnitudes;
using dft_complex_test::without;
using kernelgen::Exact;

/** Magnitudes of a double-precision kernel. */
Magnitudes held(int length, Direction direction) {
    return magnitudes(dft_complex_test::kernel(length, direction, Element::Complex64).graph);
}

std::string where(int length, Direction direction) {
    return describe(length, direction, Element::Complex64);
}

/** Binary64 constants of a kernel, in ascending order. */
std::vector<double> wide_constants(const Kernel& kernel) {
    std::set<double> values;
    for (kernelgen::NodeId id : kernel.graph.live()) {
        const kernelgen::Node& n = kernel.graph.node(id);
        if (n.op == kernelgen::Op::Constant && n.type == kernelgen::Type::Binary64)
            values.insert(
                kernel.graph.constants()[static_cast<std::size_t>(n.constant)][0].to_binary64());
    }
    return {values.begin(), values.end()};
}

const std::vector<double> kPinnedOfThree = {0.5, 0.8660254037844386};
const std::vector<double> kPinnedOfFive = {0.30901699437494745, 0.5877852522924731,
                                           0.8090169943749475, 0.9510565162951535};

TEST(ConstantsByRule, LengthsThreeAndFiveKeepTheirPinnedDecimalsInSinglePrecision) {
    for (Direction direction : kDirections) {
        const auto of = [&](int length) {
            return wide_constants(dft_complex_test::kernel(length, direction, Element::Complex32));
        };
        EXPECT_EQ(of(3), kPinnedOfThree) << dft_complex_test::name_of(direction);
        EXPECT_EQ(of(5), kPinnedOfFive) << dft_complex_test::name_of(direction);
    }
}

TEST(ConstantsByRule, LengthsThreeAndFiveKeepTheirPinnedDecimalsInDoublePrecision) {
    for (Direction direction : kDirections) {
        const auto of = [&](int length) {
            const auto values = rounded_magnitudes(
                dft_complex_test::kernel(length, direction, Element::Complex64).graph);
            return std::vector<double>(values.begin(), values.end());
        };
        EXPECT_EQ(of(3), kPinnedOfThree) << where(3, direction);
        EXPECT_EQ(of(5), kPinnedOfFive) << where(5, direction);
    }
}

/** What the half-sum form of 5 holds in the place of the two cosines. */
Magnitudes quarters() {
    const Exact quarter = Exact::rational(1, 4);
    return {quarter.key(), Exact::product({quarter, Exact::square_root(5)}).key()};
}

Magnitudes cosines_of_five() {
    return {magnitude_of(Exact::cosine(1, 5)), magnitude_of(Exact::cosine(2, 5))};
}

/** Parts of the spectrum of Rader's form of seven. */
Magnitudes spectrum_of_seven() {
    Magnitudes keys;
    for (int k = 0; k < 6; ++k) {
        const ExactComplex S = dft_complex::rader_spectrum(7, 3, k);
        for (const Exact& part : {S.re, S.im}) {
            if (!part.is_zero()) keys.insert(magnitude_of(part));
        }
    }
    return keys;
}

/** The products with a sine of length 3 are folded with the sqrt(3) of the way back, whose first
 * point takes a pair twice. */
Magnitudes of_seven_by_rader() {
    Magnitudes keys = spectrum_of_seven();
    keys.merge(roots(3));
    keys.insert(Exact::rational(2).key());
    for (int k : {1, 2}) {
        const ExactComplex S = dft_complex::rader_spectrum(7, 3, k);
        for (const Exact& part : {S.re, S.im})
            keys.insert(magnitude_of(Exact::product({Exact::square_root(3), part})));
    }
    return keys;
}

Magnitudes of_its_own_graph(const Rule& rule) {
    dft_complex::Network network;
    const auto outputs = dft(network, rule, network.input(rule.length));
    return magnitudes(lay_out_by_elements(network, outputs, Direction::Forward));
}

/** What the leaves of a prime-factor rule may hold. */
Magnitudes of_leaves(const Rule& rule) {
    Magnitudes keys;
    switch (rule.form) {
        case Rule::Form::PrimeFactor:
            for (const Rule& part : rule.parts) keys.merge(of_leaves(part));
            return keys;
        case Rule::Form::SplitRadix:
            return roots(rule.length);
        case Rule::Form::Small:
            if (rule.small_form == SmallForm::HalfSumOfTwo)
                return {*quarters().begin(), *quarters().rbegin(), magnitude_of(Exact::sine(1, 5)),
                        magnitude_of(Exact::sine(2, 5))};
            if (rule.small_form == SmallForm::RaderOfSeven) return of_seven_by_rader();
            return rule.length < 13 ? roots(rule.length) : of_its_own_graph(rule);
        default:
            return of_its_own_graph(rule);
    }
}

TEST(ConstantsByRule, DoublePrecisionOfPrimeFactorRulesHoldsNoneButThoseOfTheirLeaves) {
    int kernels = 0;
    for_each_kernel(Element::Complex64, [&](const Kernel& kernel) {
        if (kernel.rule.form != Rule::Form::PrimeFactor) return;
        ++kernels;
        EXPECT_EQ(without(magnitudes(kernel.graph), of_leaves(kernel.rule)), Magnitudes{})
            << to_string(kernel.rule);
    });
    // Every length that is no power of a prime, in both directions.
    EXPECT_EQ(kernels, 72);
}

bool is_of_leaves_below_13(const Rule& rule) {
    if (rule.form == Rule::Form::Small) return rule.length < 13;
    return rule.form == Rule::Form::PrimeFactor &&
           std::all_of(rule.parts.begin(), rule.parts.end(), is_of_leaves_below_13);
}

TEST(ConstantsByRule, SinglePrecisionOfPrimeFactorRulesHoldsNoneButThoseOfTheirLeaves) {
    std::set<int> lengths;
    for_each_kernel(Element::Complex32, [&](const Kernel& kernel) {
        if (kernel.length < 6 || !is_of_leaves_below_13(kernel.rule)) return;
        lengths.insert(kernel.length);
        EXPECT_EQ(without(magnitudes(kernel.graph), of_leaves(kernel.rule)), Magnitudes{})
            << to_string(kernel.rule);
    });
    for (int length : {6, 10, 12, 14, 15, 20, 21, 22, 28, 30, 33, 35, 42, 44, 55})
        EXPECT_TRUE(lengths.contains(length)) << "length " << length << " was not looked at";
}

// A quarter and a quarter of sqrt(5) also serve the convolutions of 30, 40 and 60 points inside
// the primes 31, 41 and 61.
TEST(ConstantsByRule, TheHalfSumOfTheCosinesOfFiveIsTakenAtTheLengthsOfItsRulesOnly) {
    std::set<int> lengths;
    for_each_kernel(Element::Complex64, [&](const Kernel& kernel) {
        if (without(quarters(), magnitudes(kernel.graph)) != quarters())
            lengths.insert(kernel.length);
    });
    EXPECT_EQ(lengths, (std::set<int>{10, 31, 35, 41, 50, 60, 61, 62}));
}

class HalfSumOfFive : public testing::TestWithParam<int> {};

TEST_P(HalfSumOfFive, LeavesNoCosineOfFive) {
    for (Direction direction : kDirections) {
        const Magnitudes keys = held(GetParam(), direction);
        EXPECT_EQ(without(cosines_of_five(), keys), cosines_of_five())
            << where(GetParam(), direction);
    }
}

INSTANTIATE_TEST_SUITE_P(AtLength, HalfSumOfFive, testing::Values(10, 35, 50, 60),
                         testing::PrintToStringParamName());

TEST(ConstantsByRule, LengthFortyFiveOfSinglePrecisionHoldsConstantsOfItsOwnOrder) {
    Magnitudes own = roots(45);
    for (int order : {3, 5, 9, 15}) own = without(own, roots(order));
    for (Direction direction : kDirections) {
        const Magnitudes keys =
            magnitudes(dft_complex_test::kernel(45, direction, Element::Complex32).graph);
        EXPECT_NE(without(own, keys), own) << describe(45, direction, Element::Complex32);
    }
}

TEST(ConstantsByRule, LengthFortyFiveOfDoublePrecisionHoldsNoneOfItsOwnOrder) {
    Magnitudes own = roots(45);
    for (int order : {5, 9}) own = without(own, roots(order));
    ASSERT_GT(own.size(), 20U);
    for (Direction direction : kDirections)
        EXPECT_EQ(without(own, held(45, direction)), own) << where(45, direction);
}

TEST(ConstantsByRule, RadersStepOfThirteenHoldsFourteenMagnitudesAndThoseOfLengthThree) {
    for (Direction direction : kDirections) {
        const Magnitudes of_13 = held(13, direction);
        EXPECT_EQ(without(roots(3), of_13),
                  (Magnitudes{Exact::rational(0).key(), Exact::rational(1).key()}))
            << where(13, direction);
        EXPECT_EQ(without(of_13, roots(3)).size(), 14U) << where(13, direction);
        for (int length : {26, 39, 52})
            EXPECT_EQ(held(length, direction), of_13) << where(length, direction);
    }
}

TEST(ConstantsByRule, LengthThirtyFiveHoldsBothFormsOfSeven) {
    Magnitudes wanted = spectrum_of_seven();
    ASSERT_EQ(wanted.size(), 6U);
    for (int k : {1, 2, 3}) {
        wanted.insert(magnitude_of(Exact::cosine(k, 7)));
        wanted.insert(magnitude_of(Exact::sine(k, 7)));
    }
    ASSERT_EQ(wanted.size(), 12U);
    for (Direction direction : kDirections)
        EXPECT_EQ(without(wanted, held(35, direction)), Magnitudes{}) << where(35, direction);
}

TEST(ConstantsByRule, LengthThirtyFiveHoldsTheSixKnownMagnitudesOfTheSpectrumOfSeven) {
    for (Direction direction : kDirections) {
        std::set<float> values;
        for (double value :
             rounded_magnitudes(dft_complex_test::kernel(35, direction, Element::Complex64).graph))
            values.insert(static_cast<float>(value));
        for (float known :
             {0.16666667F, 0.17043647F, 0.19585104F, 0.39507824F, 0.4066889F, 0.44095856F})
            EXPECT_TRUE(values.contains(known)) << known << ", " << where(35, direction);
    }
}

TEST(ConstantsByRule, LengthSixteenHoldsThreeMagnitudesEachInEightRealMultiplications) {
    const std::map<std::string, int> wanted = {{magnitude_of(Exact::cosine(1, 8)), 8},
                                               {magnitude_of(Exact::cosine(1, 16)), 8},
                                               {magnitude_of(Exact::sine(1, 16)), 8}};
    for (Direction direction : kDirections) {
        const auto& graph = dft_complex_test::kernel(16, direction, Element::Complex64).graph;
        EXPECT_EQ(dft_complex_test::uses_in_products(graph), wanted) << where(16, direction);
    }
}

}  // namespace
