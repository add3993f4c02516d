#include "kernelgen/counts.hpp"

#include <gtest/gtest.h>

#include "tests/dft_complex/support/all_kernels.hpp"

namespace {

using dft_complex_test::Direction;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::count;
using kernelgen::Counts;

Counts counts_of(int length, Direction direction) {
    return count(dft_complex_test::kernel(length, direction).graph, true);
}

TEST(Counts, NoKernelTakesMoreArithmeticThanItsRowOfTheTable) {
    for_each_kernel([](const Kernel& kernel) {
        const Counts c = count(kernel.graph, true);
        EXPECT_LE(c.sums + c.differences + c.products,
                  dft_complex::row_of(kernel.length).arithmetic())
            << c.sums << " sums, " << c.differences << " differences, " << c.products
            << " products";
    });
}

TEST(Counts, BothDirectionsTakeTheSameArithmetic) {
    for (int length = 2; length <= 64; ++length) {
        const Counts forward = counts_of(length, Direction::Forward);
        const Counts inverse = counts_of(length, Direction::Inverse);
        EXPECT_EQ(forward.products, inverse.products) << "length " << length;
        EXPECT_EQ(forward.sums + forward.differences, inverse.sums + inverse.differences)
            << "length " << length;
    }
}

TEST(Counts, LengthThreeFormsItsFourProductsInBinary64) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        const Counts c = counts_of(3, direction);
        EXPECT_EQ(c.wide_sums, 0);
        EXPECT_EQ(c.wide_differences, 2);
        EXPECT_EQ(c.wide_products, 4);
    }
}

TEST(Counts, LengthFiveFormsItsSixteenProductsInBinary64) {
    for (Direction direction : {Direction::Forward, Direction::Inverse}) {
        const Counts c = counts_of(5, direction);
        EXPECT_EQ(c.wide_sums, 6);
        EXPECT_EQ(c.wide_differences, 6);
        EXPECT_EQ(c.wide_products, 16);
    }
}

TEST(Counts, LengthsFromSixStayInVectorsOfBinary32) {
    for_each_kernel([](const Kernel& kernel) {
        if (kernel.length < 6) return;
        for (kernelgen::NodeId id : kernel.graph.live())
            ASSERT_EQ(kernel.graph.node(id).type, kernelgen::Type::Binary32x4) << "node " << id;
    });
}

TEST(Counts, EveryOutputIsStoredAndEveryInputLoaded) {
    for_each_kernel([](const Kernel& kernel) {
        std::vector<int> loads(static_cast<std::size_t>(2 * kernel.length));
        std::vector<int> stores(loads.size());
        const auto mark = [](std::vector<int>& elements, int first, int number) {
            for (int i = 0; i < number; ++i) ++elements.at(static_cast<std::size_t>(first + i));
        };
        for (kernelgen::NodeId id : kernel.graph.live()) {
            const kernelgen::Node& n = kernel.graph.node(id);
            const int lanes = kernelgen::lane_count(n.type);
            using kernelgen::Op;
            if (n.op == Op::Load) mark(loads, n.offset, lanes);
            if (n.op == Op::LoadLow || n.op == Op::LoadHigh) mark(loads, n.offset, 2);
            if (n.op == Op::LoadScalar) mark(loads, n.offset, 1);
            if (n.op == Op::Store) mark(stores, n.offset, lanes);
            if (n.op == Op::StoreLow || n.op == Op::StoreHigh) mark(stores, n.offset, 2);
        }
        for (std::size_t i = 0; i < loads.size(); ++i) {
            EXPECT_GE(loads[i], 1) << "element " << i << " is never loaded";
            EXPECT_EQ(stores[i], 1) << "element " << i << " is stored " << stores[i] << " times";
        }
    });
}

}  // namespace
