#include <gtest/gtest.h>

#include <random>

#include "tests/dft_real/white_box/support/network.hpp"
#include "tests/dft_real/white_box/support/network_shape.hpp"

// A transform of a signal with gaps is that of the signal with zeros there, and costs less.

namespace {

using dft_real::length_of;
using dft_real::Order;
using dft_real_test::all_present;
using dft_real_test::Complexes;
using dft_real_test::Graph;
using dft_real_test::in_words;
using dft_real_test::kExact;
using dft_real_test::Presence;
using dft_real_test::Reals;
using dft_real_test::RowArithmetic;

const std::vector<Order> kOrders = {
    {2, 2, 2, 2}, {2, 2, 2, 2, 2}, {3},       {5},     {7},         {11},   {13},      {17},
    {23},         {3, 3},          {3, 3, 3}, {5, 5},  {5, 3},      {2, 3}, {2, 2, 5}, {3, 2, 2},
    {5, 3, 2},    {3, 3, 2},       {11, 2},   {2, 13}, {7, 2, 2, 2}};

Graph forward(const Order& order, const Presence& present) {
    return dft_real_test::forward_network(
        length_of(order), [&](RowArithmetic& m, const Reals& x) { return real_dft(m, order, x); },
        present);
}

Graph inverse(const Order& order, const Presence& present) {
    return dft_real_test::inverse_network(
        length_of(order),
        [&](RowArithmetic& m, const Complexes& X) { return inverse_real_dft(m, order, X); },
        present);
}

Graph complex(const Order& order, const Presence& present) {
    return dft_real_test::complex_network(
        length_of(order),
        [&](RowArithmetic& m, const Complexes& x) { return complex_dft(m, order, x); }, present);
}

/** Operations but the products by the scale factor and the subtractions from zero at the stores. */
int inner_operations(const Graph& graph) {
    int number = 0;
    for (kernelgen::NodeId id : graph.live()) {
        const kernelgen::Node& n = graph.node(id);
        const bool arithmetic =
            n.op == kernelgen::Op::Add || n.op == kernelgen::Op::Sub || n.op == kernelgen::Op::Mul;
        if (!arithmetic) continue;
        const auto is = [&](kernelgen::NodeId operand, kernelgen::Op op) {
            const kernelgen::Node& o = graph.node(operand);
            return o.op == op || (o.op == kernelgen::Op::Widen && graph.node(o.a).op == op);
        };
        if (is(n.b, kernelgen::Op::Scale) || is(n.a, kernelgen::Op::Zero)) continue;
        ++number;
    }
    return number;
}

/** Random gaps, the same for one seed. */
Presence gaps(int seed) {
    return [seed](int element) {
        std::mt19937 random(static_cast<std::uint32_t>(1000 * seed + element));
        return random() % 2 == 0;
    };
}

TEST(AbsentValues, OfARealSignalActAsZeros) {
    for (const Order& order : kOrders) {
        for (int seed = 0; seed < 4; ++seed) {
            const auto present = gaps(seed);
            EXPECT_LT(dft_real_test::forward_deviation(length_of(order), forward(order, present),
                                                       present),
                      kExact)
                << in_words(order) << ", gaps " << seed;
        }
    }
}

TEST(AbsentValues, OfAHalfSpectrumActAsZeros) {
    for (const Order& order : kOrders) {
        for (int seed = 0; seed < 4; ++seed) {
            const auto present = gaps(seed);
            EXPECT_LT(dft_real_test::inverse_deviation(length_of(order), inverse(order, present),
                                                       present),
                      kExact)
                << in_words(order) << ", gaps " << seed;
        }
    }
}

TEST(AbsentValues, OfAComplexSignalActAsZeros) {
    for (const Order& order : kOrders) {
        for (int seed = 0; seed < 4; ++seed) {
            const auto present = gaps(seed);
            EXPECT_LT(dft_real_test::complex_deviation(length_of(order), complex(order, present),
                                                       -1, present),
                      kExact)
                << in_words(order) << ", gaps " << seed;
        }
    }
}

TEST(AbsentValues, MakeATransformCheaper) {
    for (const Order& order : kOrders) {
        for (int seed = 0; seed < 4; ++seed) {
            const auto present = gaps(seed);
            const std::string where = in_words(order) + ", gaps " + std::to_string(seed);
            int absent = 0;
            for (int n = 0; n < length_of(order); ++n) absent += present(n) ? 0 : 1;
            if (absent == 0) continue;
            EXPECT_LT(inner_operations(forward(order, present)),
                      inner_operations(forward(order, all_present)))
                << where;
            EXPECT_LT(inner_operations(complex(order, present)),
                      inner_operations(complex(order, all_present)))
                << where;
        }
    }
}

TEST(AbsentValues, LeaveNothingToDoForTheFirstValueAlone) {
    const auto first = [](int element) { return element == 0; };
    for (const Order& order : kOrders) {
        EXPECT_EQ(inner_operations(forward(order, first)), 0) << in_words(order);
        EXPECT_EQ(inner_operations(inverse(order, first)), 0) << in_words(order);
        EXPECT_EQ(inner_operations(complex(order, first)), 0) << in_words(order);
    }
}

TEST(AbsentValues, OfAllInputsLeaveNothingButZeros) {
    const auto none = [](int) { return false; };
    for (const Order& order : kOrders) {
        for (const Graph& graph :
             {forward(order, none), inverse(order, none), complex(order, none)}) {
            EXPECT_EQ(dft_real_test::number_of(graph, kernelgen::Op::Load), 0) << in_words(order);
            EXPECT_EQ(inner_operations(graph), 0) << in_words(order);
        }
    }
}

}  // namespace
