#include <gtest/gtest.h>

#include <map>

#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "tests/dft_real/white_box/support/networks.hpp"

namespace {

using dft_real::Cost;
using dft_real::Direction;
using dft_real::doubled_inputs;
using dft_real::Layout;
using dft_real::network_cost;
using dft_real::outputs_scaled_in_rows;
using dft_real::wide_sums;
using dft_real_test::Element;
using dft_real_test::kernel;
using dft_real_test::Kind;
using dft_real_test::kKinds;

/** A number for some lengths, 0 for the others. */
using ByLength = std::map<int, int>;

int at(const ByLength& numbers, int length) {
    const auto found = numbers.find(length);
    return found == numbers.end() ? 0 : found->second;
}

TEST(RealCounts, NoNetworkTakesMoreThanItsRowOfTheTable) {
    for (Kind kind : kKinds) {
        for (int n : dft_real::lengths()) {
            const Cost cost = network_cost(kernel(n, kind).graph);
            const Cost table = dft_real::row_of(n).cost_of(kind);
            EXPECT_LE(cost.sums, table.sums) << kernel(n, kind).name();
            EXPECT_LE(cost.products, table.products) << kernel(n, kind).name();
        }
    }
}

TEST(RealCounts, NetworksWithoutAConvolutionTakeTheProductsOfTheTable) {
    for (Kind kind : kKinds) {
        for (int n : {2,  3,  4,  5,  6,  7,  8,  9,  10, 12, 14, 15, 16, 18, 20, 21, 24,
                      25, 27, 28, 30, 32, 35, 36, 40, 42, 45, 49, 50, 54, 56, 60, 63})
            EXPECT_EQ(dft_real::row_of(n).cost_of(kind).products,
                      network_cost(kernel(n, kind).graph).products)
                << kernel(n, kind).name();
    }
}

TEST(RealCounts, BothPrecisionsHoldTheSameOperations) {
    for (Kind kind : kKinds) {
        for (int n : dft_real::lengths()) {
            const Cost single = network_cost(kernel(n, kind, Element::Real32).graph);
            const Cost doubled = network_cost(kernel(n, kind, Element::Real64).graph);
            EXPECT_EQ(single.sums, doubled.sums) << kernel(n, kind).name();
            EXPECT_EQ(single.products, doubled.products) << kernel(n, kind).name();
        }
    }
}

TEST(RealCounts, AllLayoutsHoldTheSameOperations) {
    for (int n : dft_real::lengths()) {
        const Cost ccs = network_cost(kernel(n, Kind::Forward).graph);
        for (Layout layout : {Layout::Pack, Layout::Perm}) {
            const auto& other =
                dft_real_test::kernel(n, Direction::Forward, layout, Element::Real32);
            EXPECT_EQ(ccs.sums, network_cost(other.graph).sums) << other.name();
            EXPECT_EQ(ccs.products, network_cost(other.graph).products) << other.name();
        }
    }
}

TEST(RealCounts, OutputsThatEndInARowAreScaledInIt) {
    const ByLength scaled = {{3, 2},   {5, 4},  {7, 6},  {9, 2},  {11, 10}, {12, 4}, {14, 12},
                             {15, 4},  {17, 4}, {18, 4}, {21, 2}, {22, 20}, {25, 4}, {27, 2},
                             {28, 12}, {33, 2}, {34, 8}, {35, 4}, {39, 2},  {40, 8}, {45, 2},
                             {48, 4},  {49, 6}, {51, 2}, {54, 4}, {55, 4},  {57, 2}, {63, 2}};
    for (int n : dft_real::lengths())
        EXPECT_EQ(at(scaled, n), outputs_scaled_in_rows(kernel(n, Kind::Forward).graph))
            << kernel(n, Kind::Forward).name();
}

TEST(RealCounts, InverseAndHartleyNetworksEndInSums) {
    for (Kind kind : {Kind::Inverse, Kind::Hartley}) {
        for (int n : dft_real::lengths())
            EXPECT_EQ(0, outputs_scaled_in_rows(kernel(n, kind).graph)) << kernel(n, kind).name();
    }
}

TEST(RealCounts, ABinWithNoUseButOneProductIsDoubledInItsConstant) {
    const ByLength folded = {{3, 1},  {9, 1},  {12, 2}, {15, 1}, {17, 2}, {21, 1}, {27, 1},
                             {30, 2}, {33, 1}, {34, 4}, {51, 1}, {54, 2}, {57, 1}, {63, 1}};
    for (int n : dft_real::lengths()) {
        const int interior = 2 * ((n - 1) / 2);
        EXPECT_EQ(at(folded, n), interior - doubled_inputs(kernel(n, Kind::Inverse).graph))
            << kernel(n, Kind::Inverse).name();
    }
}

TEST(RealCounts, SumsInThePrecisionOfTheirRowStandInConvolutionsAndTwentySevenPointsOnly) {
    const std::map<Kind, ByLength> wide = {
        {Kind::Forward, {{19, 2}, {37, 4}, {38, 4}, {57, 6}}},
        {Kind::Inverse, {{19, 2}, {27, 2}, {37, 4}, {38, 4}, {54, 4}, {57, 6}}},
        {Kind::Hartley, {{19, 2}, {27, 2}, {37, 4}, {38, 4}, {54, 4}, {57, 6}}}};
    for (Kind kind : kKinds) {
        for (int n : dft_real::lengths())
            EXPECT_EQ(at(wide.at(kind), n), wide_sums(kernel(n, kind).graph))
                << kernel(n, kind).name();
    }
}

TEST(RealCounts, ABinary64KernelHoldsNoSumsOfWidenedValues) {
    for (Kind kind : kKinds) {
        for (int n : {19, 27, 37, 38, 54, 57})
            EXPECT_EQ(0, wide_sums(kernel(n, kind, Element::Real64).graph))
                << kernel(n, kind).name();
    }
}

}  // namespace
