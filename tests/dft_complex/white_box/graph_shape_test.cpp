#include <gtest/gtest.h>

#include <vector>

#include "tests/dft_complex/white_box/support/all_kernels.hpp"

// Which nodes the graphs of kernels are made of.

namespace {

using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using kernelgen::Node;
using kernelgen::NodeId;
using kernelgen::Op;
using kernelgen::Type;

TEST(GraphShape, SinglePrecisionLengthsFromSixStayInVectorsOfBinary32) {
    for_each_kernel(Element::Complex32, [](const Kernel& kernel) {
        if (kernel.length < 6) return;
        for (NodeId id : kernel.graph.live())
            ASSERT_EQ(kernel.graph.node(id).type, Type::Binary32x4) << "node " << id;
    });
}

TEST(GraphShape, DoublePrecisionStaysInVectorsOfBinary64) {
    for_each_kernel(Element::Complex64, [](const Kernel& kernel) {
        for (NodeId id : kernel.graph.live())
            ASSERT_EQ(kernel.graph.node(id).type, Type::Binary64x2) << "node " << id;
    });
}

TEST(GraphShape, EveryOutputIsStoredOnceAndEveryInputLoaded) {
    for_each_kernel([](const Kernel& kernel) {
        std::vector<int> loads(static_cast<std::size_t>(2 * kernel.length));
        std::vector<int> stores(loads.size());
        const auto mark = [](std::vector<int>& elements, int first, int number) {
            for (int i = 0; i < number; ++i) ++elements.at(static_cast<std::size_t>(first + i));
        };
        for (NodeId id : kernel.graph.live()) {
            const Node& n = kernel.graph.node(id);
            const int lanes = kernelgen::lane_count(n.type);
            const int half = kernelgen::is_binary32(n.type) ? 2 : 1;
            if (n.op == Op::Load) mark(loads, n.offset, lanes);
            if (n.op == Op::LoadLow || n.op == Op::LoadHigh) mark(loads, n.offset, half);
            if (n.op == Op::LoadScalar) mark(loads, n.offset, 1);
            if (n.op == Op::Store) mark(stores, n.offset, lanes);
            if (n.op == Op::StoreLow || n.op == Op::StoreHigh) mark(stores, n.offset, half);
        }
        for (std::size_t i = 0; i < loads.size(); ++i) {
            EXPECT_GE(loads[i], 1) << "real element " << i << " is never loaded";
            EXPECT_EQ(stores[i], 1) << "real element " << i;
        }
    });
}

// Whole vectors at even offsets are whole elements.
TEST(GraphShape, DoublePrecisionMovesEachElementOnceAndWhole) {
    for_each_kernel(Element::Complex64, [](const Kernel& kernel) {
        std::vector<int> loads(static_cast<std::size_t>(2 * kernel.length));
        std::vector<int> stores(loads.size());
        for (NodeId id : kernel.graph.live()) {
            const Node& n = kernel.graph.node(id);
            EXPECT_TRUE(n.op != Op::LoadLow && n.op != Op::LoadHigh && n.op != Op::LoadScalar &&
                        n.op != Op::StoreLow && n.op != Op::StoreHigh)
                << "node " << id << " moves half an element at offset " << n.offset;
            if (n.op == Op::Load) ++loads.at(static_cast<std::size_t>(n.offset));
            if (n.op == Op::Store) ++stores.at(static_cast<std::size_t>(n.offset));
        }
        for (std::size_t i = 0; i < loads.size(); ++i) {
            EXPECT_EQ(loads[i], i % 2 == 0 ? 1 : 0) << "loads at offset " << i;
            EXPECT_EQ(stores[i], i % 2 == 0 ? 1 : 0) << "stores at offset " << i;
        }
    });
}

TEST(GraphShape, EveryShuffleOfDoublePrecisionSwapsTheLanesOfOneVector) {
    int shuffles = 0;
    for_each_kernel(Element::Complex64, [&](const Kernel& kernel) {
        for (NodeId id : kernel.graph.live()) {
            const Node& n = kernel.graph.node(id);
            if (n.op != Op::Shuffle) continue;
            ++shuffles;
            EXPECT_EQ(n.a, n.b) << "node " << id;
            EXPECT_EQ(n.selection[0], 1) << "node " << id;
            EXPECT_EQ(n.selection[1], 0) << "node " << id;
        }
    });
    EXPECT_GT(shuffles, 1000);
}

}  // namespace
