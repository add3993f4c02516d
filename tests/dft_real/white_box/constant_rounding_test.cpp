#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "tests/dft_real/white_box/support/constant_checks.hpp"

// Every constant of every kernel, evaluated again by another arithmetic.

namespace {

using dft_complex_test::Magnitudes;
using dft_real_test::Direction;
using dft_real_test::Element;
using dft_real_test::for_each_kernel;
using dft_real_test::foreign_constants;
using dft_real_test::Kernel;
using dft_real_test::Layout;
using dft_real_test::RealKernel;

TEST(ConstantRounding, EveryConstantIsPositiveAndTheNearestBinary64) {
    dft_real_test::ConstantChecks checks;
    for_each_kernel(
        [&](const Kernel& kernel) { checks.expect_rounded_once_and_positive(kernel.made()); });
    EXPECT_GT(checks.distinct(), 500U);
}

// No constant that the rows take is rounded to binary32: only doublings are of that precision.
TEST(ConstantRounding, ConstantsOfBinary32AreTwoAlone) {
    for_each_kernel([](const Kernel& kernel) {
        const kernelgen::Graph& graph = kernel.made().graph;
        for (kernelgen::NodeId id : graph.live()) {
            const kernelgen::Node& n = graph.node(id);
            if (n.op != kernelgen::Op::Constant || n.type != kernelgen::Type::Binary32) continue;
            EXPECT_EQ(graph.constants()[static_cast<std::size_t>(n.constant)].front().to_binary64(),
                      2);
        }
    });
}

TEST(ConstantRounding, CoprimeLengthsHoldNoConstantsButThoseOfTheirFactors) {
    for (int length : dft_real_test::kCoprimeLengths) {
        for (Direction direction : dft_real_test::kDirections) {
            const RealKernel& kernel =
                dft_real_test::kernel(length, direction, Layout::Pack, Element::Real32);
            EXPECT_EQ(foreign_constants(kernel), Magnitudes{}) << kernel.name();
        }
    }
}

TEST(ConstantRounding, AllLayoutsAndBothElementsHoldTheSameConstants) {
    const auto keys = [](const RealKernel& kernel) {
        Magnitudes of_kernel;
        for (const auto& c : dft_real_test::constants_of(kernel)) of_kernel.insert(c.key());
        return of_kernel;
    };
    for_each_kernel([&](const Kernel& kernel) {
        EXPECT_EQ(keys(kernel.made()), keys(dft_real_test::kernel(kernel.length, kernel.direction,
                                                                  Layout::CCS, Element::Real32)));
    });
}

}  // namespace
