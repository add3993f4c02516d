/** @file @brief The table of stage orders is looked through before it is used, and tunings serve
 * the order that they were found for. */
#include "transforms/dft_real/rules/stage_orders.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "targets/targets.hpp"
#include "tests/support/required_rows.hpp"
#include "transforms/dft_real/recorded/tuning.hpp"

namespace {

using dft_real::ConvolutionForm;
using dft_real::Element;
using dft_real::Kind;
using dft_real::RecordedTuning;
using dft_real::Rounding;
using dft_real::TableRow;
using dft_real::tuning_of;

TableRow row(int length, const std::vector<int>& order) {
    return {length, {order, order, order}, {}};
}

std::string refusal(const std::vector<TableRow>& rows) {
    try {
        dft_real::check(rows);
        return {};
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

TEST(StageOrders, TheTableMakesSense) {
    EXPECT_EQ(refusal(dft_real::table()), "");
}

TEST(StageOrders, EachLengthOfAPublishedKernelHasARow) {
    for (int length = 2; length <= 64; ++length) EXPECT_EQ(dft_real::row_of(length).length, length);
}

// Published kernels keep what the file requires; lengths beside it are free.
TEST(StageOrders, EachRowIsTheRequiredOne) {
    constexpr Kind kKinds[] = {Kind::Forward, Kind::Inverse, Kind::Hartley};
    const auto rows = qsvgen_test::required_rows(REQUIRED_ROWS);
    ASSERT_EQ(rows.size(), 63U);
    for (const std::vector<std::string>& cells : rows) {
        const TableRow& row = dft_real::row_of(std::stoi(cells.at(0)));
        std::size_t stages = 1;
        std::size_t cost = 4;
        for (Kind kind : kKinds) {
            const std::string where =
                "length " + cells[0] + ", kind " + std::to_string(static_cast<int>(kind));
            EXPECT_EQ(dft_real::in_words(row.order_of(kind)), cells.at(stages++)) << where;
            EXPECT_EQ(row.cost_of(kind).sums, std::stoi(cells.at(cost++))) << where;
            EXPECT_EQ(row.cost_of(kind).products, std::stoi(cells.at(cost++))) << where;
        }
    }
}

TEST(StageOrders, RowsTwiceOrOutOfOrderAreNamed) {
    EXPECT_EQ(refusal({row(2, {2}), row(2, {2})}),
              "the table of stage orders: the row of length 2 stands twice");
    EXPECT_EQ(refusal({row(3, {3}), row(2, {2})}),
              "the table of stage orders: the row of length 2 stands behind that of 3");
    EXPECT_EQ(refusal({row(1, {2})}),
              "the table of stage orders: the row of length 1 is too short for a transform");
    EXPECT_EQ(refusal({row(0, {2})}),
              "the table of stage orders: the row of length 0 is too short for a transform");
}

TEST(StageOrders, AnOrderOfAnotherLengthIsNamed) {
    EXPECT_EQ(refusal({row(66, {2, 3, 5})}),
              "the table of stage orders: the row of length 66 has the order 2 3 5, which makes 30 "
              "points");
    EXPECT_EQ(refusal({row(66, {5, 13})}),
              "the table of stage orders: the row of length 66 has the order 5 13, which makes 65 "
              "points");
}

TEST(StageOrders, AConvolutionTakesThePlaceOfAPrimeOnly) {
    EXPECT_EQ(refusal({row(67, {2, 3, 11})}), "");
    EXPECT_TRUE(row(67, {2, 3, 11}).is_convolution(Kind::Forward));
    EXPECT_FALSE(row(66, {2, 3, 11}).is_convolution(Kind::Forward));
}

TEST(StageOrders, FactorsThatAreNoStagesAreNamed) {
    EXPECT_EQ(
        refusal({row(6, {6})}),
        "the table of stage orders: the row of length 6 has the order 6, whose factors are to "
        "be primes or 4");
    EXPECT_EQ(refusal({row(2, {})}),
              "the table of stage orders: the row of length 2 has the order , whose factors are to "
              "be primes or 4");
}

TEST(StageOrders, LengthsWithoutAKernelHaveNoRow) {
    for (int length : {-1, 0, 1, 65})
        EXPECT_THROW(dft_real::row_of(length), std::out_of_range) << length;
}

TEST(StageOrders, TheSineWaitsAtThirteenAlone) {
    for (int prime : {11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53, 59, 61})
        EXPECT_EQ(dft_real::convolution_form(prime) == ConvolutionForm::SineWaits, prime == 13)
            << prime;
}

TEST(StageOrders, SumsAreWideButInNinePointStagesOfTheirOwn) {
    for (int length : dft_real::lengths())
        EXPECT_EQ(dft_real::has_wide_sums(length), length % 9 != 0 || length % 27 == 0) << length;
}

TEST(RealTuning, OfAnotherOrderIsRefusedAndBothAreNamed) {
    const RecordedTuning recorded[] = {
        {Kind::Forward, 6, "2 3", {"source", Rounding::Conversion, ""}}};
    EXPECT_EQ(tuning_of(Kind::Forward, row(6, {2, 3}), Element::Real32, recorded).order, "source");
    EXPECT_EQ(tuning_of(Kind::Inverse, row(6, {2, 3}), Element::Real32, recorded).order, "");
    try {
        tuning_of(Kind::Forward, row(6, {3, 2}), Element::Real64, recorded);
        FAIL() << "nothing was thrown";
    } catch (const std::logic_error& error) {
        const std::string message = error.what();
        for (const char* part : {"length 6 in 64f", "2 3", "3 2", "scripts/tune-orders"})
            EXPECT_NE(message.find(part), std::string::npos) << part << ": " << message;
    }
}

TEST(RealTuning, ThatStandsThereTwiceIsRefused) {
    const RecordedTuning one = {Kind::Forward, 6, "2 3", {"source", Rounding::Conversion, ""}};
    const RecordedTuning recorded[] = {one, one};
    EXPECT_THROW(tuning_of(Kind::Forward, row(6, {2, 3}), Element::Real32, recorded),
                 std::logic_error);
}

TEST(RealTuning, AllThatAreRecordedFitTheTable) {
    for (const kernelgen::Target& target : kernelgen::kTargets) {
        for (Element element : {Element::Real32, Element::Real64}) {
            for (Kind kind : {Kind::Forward, Kind::Inverse, Kind::Hartley}) {
                for (int length : dft_real::lengths())
                    EXPECT_NO_THROW(tuning_of(kind, dft_real::row_of(length), element, target))
                        << length << ", " << target.name;
            }
        }
    }
}

}  // namespace
