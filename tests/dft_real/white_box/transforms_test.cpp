#include <gtest/gtest.h>

#include "tests/dft_real/white_box/support/network.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"

// The transforms by order, each against its definition, at lengths of the table and beyond.

namespace {

using dft_real::ElevenPoints;
using dft_real::Kind;
using dft_real::length_of;
using dft_real::Order;
using dft_real_test::Complexes;
using dft_real_test::in_words;
using dft_real_test::kExact;
using dft_real_test::Reals;
using dft_real_test::RowArithmetic;

const std::vector<Order> kPowers = {{2},
                                    {2, 2},
                                    {2, 2, 2},
                                    {2, 2, 2, 2},
                                    {2, 2, 2, 2, 2},
                                    {2, 2, 2, 2, 2, 2, 2},
                                    {3},
                                    {5},
                                    {7},
                                    {11},
                                    {13},
                                    {17},
                                    {29},
                                    {61},
                                    {3, 3},
                                    {5, 5},
                                    {7, 7},
                                    {3, 3, 3},
                                    {3, 3, 3, 3},
                                    {11, 11},
                                    {5, 5, 5}};

const std::vector<Order> kCoprime = {
    {3, 2},    {2, 3},        {5, 3},       {3, 5},    {2, 2, 5}, {5, 2, 2}, {4, 3, 3},
    {3, 3, 4}, {7, 2, 2, 2},  {2, 2, 2, 7}, {5, 3, 2}, {3, 5, 2}, {2, 3, 5}, {2, 2, 3, 5},
    {11, 7},   {7, 11},       {13, 5},      {5, 17},   {3, 3, 7}, {7, 3, 3}, {5, 5, 3},
    {11, 2},   {2, 2, 2, 11}, {11, 3},      {3, 19},   {7, 5, 3}};

std::vector<Order> all_orders() {
    std::vector<Order> orders = kPowers;
    orders.insert(orders.end(), kCoprime.begin(), kCoprime.end());
    return orders;
}

class Transforms : public testing::TestWithParam<Order> {};

TEST_P(Transforms, RealDftIsItsDefinition) {
    const int N = length_of(GetParam());
    const auto graph = dft_real_test::forward_network(
        N, [](RowArithmetic& m, const Reals& x) { return real_dft(m, GetParam(), x); });
    EXPECT_LT(dft_real_test::forward_deviation(N, graph), kExact) << in_words(GetParam());
}

TEST_P(Transforms, InverseIsItsDefinitionWithEitherFormOfElevenPoints) {
    const int N = length_of(GetParam());
    for (ElevenPoints eleven : {ElevenPoints::Rader, ElevenPoints::Dense}) {
        const auto graph =
            dft_real_test::inverse_network(N, [&](RowArithmetic& m, const Complexes& X) {
                return inverse_real_dft(m, GetParam(), X, eleven);
            });
        EXPECT_LT(dft_real_test::inverse_deviation(N, graph), kExact)
            << in_words(GetParam())
            << (eleven == ElevenPoints::Dense ? ", dense eleven" : ", eleven by convolution");
    }
}

TEST_P(Transforms, ComplexDftIsItsDefinition) {
    const int N = length_of(GetParam());
    const auto graph = dft_real_test::complex_network(
        N, [](RowArithmetic& m, const Complexes& x) { return complex_dft(m, GetParam(), x); });
    EXPECT_LT(dft_real_test::complex_deviation(N, graph, -1), kExact) << in_words(GetParam());
}

TEST_P(Transforms, ComplexInverseIsItsDefinition) {
    const int N = length_of(GetParam());
    const auto graph = dft_real_test::complex_network(N, [](RowArithmetic& m, const Complexes& x) {
        return complex_inverse_dft(m, GetParam(), x);
    });
    EXPECT_LT(dft_real_test::complex_deviation(N, graph, +1), kExact) << in_words(GetParam());
}

std::string name_of(const testing::TestParamInfo<Order>& order) {
    std::string name = "Order";
    for (int factor : order.param) name += "_" + std::to_string(factor);
    return name;
}

INSTANTIATE_TEST_SUITE_P(ByOrder, Transforms, testing::ValuesIn(all_orders()), name_of);

class BetweenTwos : public testing::TestWithParam<Order> {};

// Only the forward transform knows this order.
TEST_P(BetweenTwos, IsTheDefinitionOfARealDft) {
    const int N = length_of(GetParam());
    const auto graph = dft_real_test::forward_network(
        N, [](RowArithmetic& m, const Reals& x) { return real_dft(m, GetParam(), x); });
    EXPECT_LT(dft_real_test::forward_deviation(N, graph), kExact) << in_words(GetParam());
}

TEST_P(BetweenTwos, IsWhatTheOrderWithTwosAtBothEndsMeans) {
    const auto by_order = dft_real_test::forward_network(
        length_of(GetParam()),
        [](RowArithmetic& m, const Reals& x) { return real_dft(m, GetParam(), x); });
    const auto by_stage =
        dft_real_test::forward_network(length_of(GetParam()), [](RowArithmetic& m, const Reals& x) {
            return real_dft_between_twos(m, {GetParam().begin() + 1, GetParam().end() - 1}, x);
        });
    ASSERT_EQ(by_order.size(), by_stage.size()) << in_words(GetParam());
    for (std::size_t id = 0; id < by_order.size(); ++id)
        EXPECT_EQ(by_order.node(static_cast<int>(id)), by_stage.node(static_cast<int>(id)))
            << in_words(GetParam()) << ", node " << id;
}

INSTANTIATE_TEST_SUITE_P(ByOrder, BetweenTwos,
                         testing::Values(Order{2, 3, 2}, Order{2, 5, 2}, Order{2, 7, 2},
                                         Order{2, 11, 2}, Order{2, 13, 2}, Order{2, 3, 3, 2},
                                         Order{2, 5, 3, 2}, Order{2, 17, 2}, Order{2, 5, 5, 2}),
                         name_of);

void expect_parts(const Order& order, const Order& first, const Order& second) {
    const dft_real::CoprimeParts parts = dft_real::coprime_parts(order);
    EXPECT_EQ(parts.first, first) << in_words(order);
    EXPECT_EQ(parts.second, second) << in_words(order);
}

TEST(CoprimeParts, AnOrderIsCutBeforeItsLastGroup) {
    expect_parts({5, 3, 2, 2}, {5, 3}, {2, 2});
    expect_parts({3, 2, 5}, {3, 2}, {5});
    expect_parts({2, 3, 3}, {2}, {3, 3});
}

TEST(CoprimeParts, ThePowerOfAPrimeIsNotCut) {
    expect_parts({2, 2, 2}, {2, 2, 2}, {});
    expect_parts({3, 3}, {3, 3}, {});
    expect_parts({13}, {13}, {});
}

TEST(CoprimeParts, FourCountsAsTwos) {
    expect_parts({4, 2, 2}, {4, 2, 2}, {});
    expect_parts({4, 3, 3}, {4}, {3, 3});
    expect_parts({3, 4}, {3}, {4});
}

TEST(Orders, ALengthIsTheProductOfItsFactors) {
    EXPECT_EQ(length_of({}), 1);
    EXPECT_EQ(length_of({7}), 7);
    EXPECT_EQ(length_of({5, 3, 2, 2}), 60);
}

TEST(Orders, TheTableHoldsEachLengthOnce) {
    ASSERT_EQ(dft_real::table().size(), 63U);
    for (int N = 2; N <= 64; ++N) EXPECT_EQ(dft_real::row_of(N).length, N);
}

TEST(Orders, LengthsBesideTheTableAreRefused) {
    for (int N : {-1, 0, 1, 65})
        EXPECT_THROW(dft_real::row_of(N), std::out_of_range) << "length " << N;
}

TEST(Orders, OrdersOfTheTableMakeTheirLengthOrThatOfAConvolution) {
    for (const dft_real::TableRow& row : dft_real::table()) {
        for (Kind kind : {Kind::Forward, Kind::Inverse, Kind::Hartley}) {
            const Order& order = row.order_of(kind);
            const bool prime = row.length == 11 || row.length >= 13;
            EXPECT_TRUE(length_of(order) == row.length ||
                        (prime && length_of(order) == row.length - 1))
                << "length " << row.length << ", " << in_words(order);
            EXPECT_EQ(length_of(order) != row.length, row.is_convolution(kind))
                << "length " << row.length;
            EXPECT_EQ(row.length, length_of(row.factors_of(kind))) << "length " << row.length;
        }
    }
}

}  // namespace
