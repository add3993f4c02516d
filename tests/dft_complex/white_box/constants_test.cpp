#include <gtest/gtest.h>

#include <set>

#include "tests/dft_complex/white_box/support/all_kernels.hpp"
#include "tests/kernelgen/support/independent_value.hpp"

// Every constant of every kernel, evaluated again by another arithmetic.

namespace {

using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::Exact;
using kernelgen_test::Independent;
using kernelgen_test::IndependentEvaluator;
using kernelgen_test::is_nearest;

/** Every distinct constant of every kernel of an element type once. */
template <class Check>
void for_each_constant(Element element, const Check& check) {
    std::set<std::string> seen;
    for_each_kernel(element, [&](const Kernel& kernel) {
        for (const kernelgen::Lanes& lanes : kernel.graph.constants()) {
            for (const Exact& lane : lanes) {
                if (seen.insert(lane.key()).second) check(lane);
            }
        }
    });
    EXPECT_GT(seen.size(), element == Element::Complex32 ? 1000U : 600U) << suffix(element);
}

TEST(Constants, EveryConstantOfSinglePrecisionIsTheNearestBinary32) {
    IndependentEvaluator evaluator;
    for_each_constant(Element::Complex32, [&](const Exact& c) {
        if (c.expression().kind == Exact::Kind::Pinned) return;
        EXPECT_TRUE(is_nearest(c.to_binary32(), evaluator.ideal(c)))
            << c.key() << " became " << std::hexfloat << c.to_binary32();
    });
}

class Constants : public testing::TestWithParam<Element> {};

TEST_P(Constants, EveryConstantOfEveryKernelIsTheNearestBinary64) {
    IndependentEvaluator evaluator;
    for_each_constant(GetParam(), [&](const Exact& c) {
        EXPECT_TRUE(is_nearest(c.to_binary64(), evaluator.as_written(c)))
            << c.key() << " became " << std::hexfloat << c.to_binary64();
    });
}

TEST_P(Constants, ValuesInProofsAreRightToFiftyDigits) {
    IndependentEvaluator evaluator;
    for_each_constant(GetParam(), [&](const Exact& c) {
        const Independent proof_value(c.value().str(60, std::ios_base::scientific));
        EXPECT_LT(abs(Independent(proof_value - evaluator.ideal(c))), Independent("1e-50"))
            << c.key();
    });
}

INSTANTIATE_TEST_SUITE_P(OfElement, Constants,
                         testing::Values(Element::Complex32, Element::Complex64),
                         [](const auto& element) { return suffix(element.param); });

}  // namespace
