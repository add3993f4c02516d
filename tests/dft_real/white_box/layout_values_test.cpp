#include "transforms/dft_real/kernels/layout_values.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "tests/kernelgen/support/unfolded_bits.hpp"
#include "transforms/dft_real/decompositions/row_arithmetic.hpp"

// Kernels of the three layouts give the same bits, those of all targets as well, and a kernel that
// does not is seen.

namespace {

using dft_real::prove_same_values_as_ccs;
using dft_real_test::Direction;
using dft_real_test::Element;
using dft_real_test::kDirections;
using dft_real_test::Layout;
using dft_real_test::RealKernel;

std::string complaint(const RealKernel& kernel, Direction direction, Layout layout) {
    try {
        prove_same_values_as_ccs(kernel, direction, layout);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "none";
}

// Those of the other layouts are the same, as the next test shows.
TEST(LayoutValues, OfCcsGiveTheBitsOfTheLaidOutKernels) {
    dft_real_test::for_each_kernel([](const dft_real_test::Kernel& kernel) {
        if (kernel.layout != Layout::CCS) return;
        kernelgen_test::expect_unfolded_bits(kernel.made().graph,
                                             transforms::scalar_type(kernel.element));
    });
}

TEST(LayoutValues, AreThoseOfCcsInEveryKernel) {
    dft_real_test::for_each_kernel([](const dft_real_test::Kernel& kernel) {
        EXPECT_EQ(complaint(kernel.made(), kernel.direction, kernel.layout), "none");
    });
}

TEST(LayoutValues, OfAKernelOfAnotherLayoutAreOthers) {
    for (Direction direction : kDirections) {
        const RealKernel perm = dft_real_test::kernel(8, direction, Layout::Perm, Element::Real32);
        EXPECT_EQ(complaint(perm, direction, Layout::Perm), "none");
        EXPECT_NE(complaint(perm, direction, Layout::Pack).find(perm.name()), std::string::npos)
            << complaint(perm, direction, Layout::Pack);
    }
}

TEST(LayoutValues, OfAnotherElementAreOthers) {
    for (Direction direction : kDirections) {
        RealKernel pack = dft_real_test::kernel(9, direction, Layout::Pack, Element::Real32);
        pack.element = Element::Real64;
        EXPECT_NE(complaint(pack, direction, Layout::Pack), "none");
    }
}

/** Three points into Pack by sums in another order: the same matrix. */
kernelgen::Graph three_points_otherwise() {
    using kernelgen::Exact;
    kernelgen::Graph g;
    dft_real::RowArithmetic m(g);
    const auto x0 = m.load(0);
    const auto x1 = m.load(1);
    const auto x2 = m.load(2);
    m.store_scaled(m.add(m.add(x0, x1), x2), 0);
    const auto sum = m.add(x1, x2);
    m.store_scaled(m.row({{Exact::rational(1), x0}, {Exact::rational(-1, 2), sum}}), 1);
    m.store_scaled(m.row({{-Exact::sine(1, 3), m.sub(x1, x2)}}), 2);
    return g;
}

TEST(LayoutValues, OfAnotherOrderOfThreeSumsAreOthers) {
    RealKernel kernel = dft_real_test::kernel(3, Direction::Forward, Layout::Pack, Element::Real32);
    kernel.graph = three_points_otherwise();
    const std::string message = complaint(kernel, Direction::Forward, Layout::Pack);
    EXPECT_NE(message.find("qsvgDFTFwd_RToPack_3_32f: output 0 has not the bits of "
                           "qsvgDFTFwd_RToCCS_3_32f"),
              std::string::npos)
        << message;
}

TEST(LayoutValues, OfAnElementThatHoldsNoPartMustBeZero) {
    RealKernel kernel = dft_real_test::kernel(7, Direction::Forward, Layout::CCS, Element::Real32);
    EXPECT_EQ(complaint(kernel, Direction::Forward, Layout::CCS), "none");
    kernel.graph.store(kernel.graph.scale(kernelgen::Type::Binary32), 8);
    EXPECT_EQ(complaint(kernel, Direction::Forward, Layout::CCS),
              "qsvgDFTFwd_RToCCS_7_32f: element 8 is neither a part of a bin nor zero");
}

TEST(LayoutValues, OfAnInverseKernelDoNotTakeTheZerosOfCcs) {
    RealKernel kernel = dft_real_test::kernel(7, Direction::Inverse, Layout::CCS, Element::Real32);
    kernel.graph.store(kernel.graph.load(kernelgen::Type::Binary32, 1), 7);
    EXPECT_EQ(complaint(kernel, Direction::Inverse, Layout::CCS),
              "qsvgDFTInv_CCSToR_7_32f: reads element 1, which is no part of a bin");
}

TEST(TargetValues, OfAnotherOrderOfThreeSumsAreNotThoseOfTheReference) {
    RealKernel kernel = dft_real::described_dft_kernel(3, Direction::Forward, Layout::Pack,
                                                       Element::Real32, kernelgen::kX86_64);
    EXPECT_NO_THROW(dft_real::prove_values(kernel, Direction::Forward, Layout::Pack));
    kernel.graph = three_points_otherwise();
    std::string message;
    try {
        dft_real::prove_values(kernel, Direction::Forward, Layout::Pack);
    } catch (const std::logic_error& error) {
        message = error.what();
    }
    EXPECT_NE(message.find("qsvgDFTFwd_RToPack_3_32f for x86-64: output 0 has not the bits of "
                           "qsvgDFTFwd_RToPack_3_32f for ia32"),
              std::string::npos)
        << message;
}

}  // namespace
