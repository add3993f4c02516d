#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/dft_real/white_box/support/constant_checks.hpp"
#include "tests/hartley/white_box/support/all_kernels.hpp"
#include "tests/kernelgen/support/unfolded_bits.hpp"
#include "transforms/dft_real/kernels/real_kernel_source.hpp"

// The Hartley kernels: which constants they hold, how they are written.

namespace {

using dft_complex_test::Magnitudes;
using dft_real::doubled_inputs;
using dft_real::Element;
using dft_real::kernel_source;
using dft_real::RealKernel;
using hartley_test::for_each_kernel;
using hartley_test::kernel;

TEST(HartleyKernels, DoubleNoInput) {
    for_each_kernel([](const RealKernel& kernel) { EXPECT_EQ(doubled_inputs(kernel.graph), 0); });
}

TEST(HartleyKernels, HoldPositiveConstantsThatAreTheNearestBinary64) {
    dft_real_test::ConstantChecks checks;
    for_each_kernel(
        [&](const RealKernel& kernel) { checks.expect_rounded_once_and_positive(kernel); });
    EXPECT_GT(checks.distinct(), 500U);
}

TEST(HartleyKernels, OfCoprimeLengthsHoldNoConstantsButThoseOfTheirFactors) {
    for (int length : dft_real_test::kCoprimeLengths) {
        const RealKernel& one = kernel(length, Element::Real32);
        EXPECT_EQ(dft_real_test::foreign_constants(one), Magnitudes{}) << one.name();
    }
}

TEST(HartleyKernels, HaveValuesThatGiveTheirBits) {
    for_each_kernel([](const RealKernel& kernel) {
        kernelgen_test::expect_unfolded_bits(kernel.graph, transforms::scalar_type(kernel.element));
    });
}

/** The kernel of two points, whose difference is that of the wrong order where it is `wrong`. */
RealKernel two_points_for_x86_64(bool wrong) {
    RealKernel kernel = hartley::described_kernel(2, Element::Real64, kernelgen::kX86_64);
    if (!wrong) return kernel;
    kernelgen::Graph g;
    const auto x0 = g.load(kernelgen::Type::Binary64, 0);
    const auto x1 = g.load(kernelgen::Type::Binary64, 1);
    const auto scale = g.scale(kernelgen::Type::Binary64);
    g.store(g.mul(g.add(x0, x1), scale), 0);
    g.store(g.positive(-g.mul(g.sub(x1, x0), scale)), 1);
    kernel.graph = g;
    return kernel;
}

TEST(HartleyKernels, OfAnotherTargetMustHaveTheValuesOfTheReference) {
    EXPECT_NO_THROW(hartley::prove_values(two_points_for_x86_64(false)));
    std::string message;
    try {
        hartley::prove_values(two_points_for_x86_64(true));
    } catch (const std::logic_error& error) {
        message = error.what();
    }
    EXPECT_NE(message.find("qsvgHartley_2_64f for x86-64: output 1 has not the bits of "
                           "qsvgHartley_2_64f for ia32"),
              std::string::npos)
        << message;
}

TEST(HartleyKernels, AreNamedByLengthAndElement) {
    EXPECT_EQ(kernel(7, Element::Real32).name(), "qsvgHartley_7_32f");
    EXPECT_EQ(kernel(12, Element::Real64).name(), "qsvgHartley_12_64f");
}

TEST(HartleyKernels, AreScaledUnderTheFlagsOfBothDirections) {
    EXPECT_NE(kernel_source(kernel(4, Element::Real32))
                  .find("core::ScaleTable<Real32>::both(0x1p-2f, 0x1p-1f);"),
              std::string::npos);
    EXPECT_NE(kernel_source(kernel(4, Element::Real64))
                  .find("core::ScaleTable<Real64>::both(0x1p-2, 0x1p-1);"),
              std::string::npos);
}

TEST(HartleyKernels, ADispatcherHasACaseForEachLength) {
    for (Element element : dft_real::kElements) {
        const std::string text = dft_real::dispatcher_source(hartley::kFamily, element);
        for (int length = 2; length <= 64; ++length)
            EXPECT_NE(text.find("case " + std::to_string(length - 2) +
                                ":\n            return qsvgHartley_" + std::to_string(length) +
                                "_" + suffix(element) + "(src, dst, flag);"),
                      std::string::npos)
                << suffix(element) << ", length " << length;
    }
}

}  // namespace
