/** @file @brief Tables that do not make sense are refused with a sentence, before they are used. */
#include "transforms/dft_complex/rules/table.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/required_rows.hpp"

namespace {

using dft_complex::Element;
using dft_complex::P;
using dft_complex::R;
using dft_complex::Rule;
using dft_complex::S;
using dft_complex::small;
using dft_complex::SmallForm;
using dft_complex::T;
using dft_complex::TableRow;

TableRow row(int length, const Rule& rule) {
    return {length, rule, 0, 0, 0};
}

/** What is said of a table of this single precision beside one that is right. */
std::string refusal(const std::vector<TableRow>& rows) {
    const std::vector<TableRow> right = {row(2, small(2)), row(3, small(3)),
                                         row(6, P(small(2), small(3)))};
    try {
        dft_complex::check(rows, right);
        return {};
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

std::string refusal(const Rule& rule) {
    try {
        dft_complex::check(rule);
        return {};
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

TEST(Table, TheTablesOfTheFamilyMakeSense) {
    EXPECT_NO_THROW(dft_complex::check(dft_complex::single_precision_table(),
                                       dft_complex::double_precision_table()));
}

TEST(Table, EachLengthOfAPublishedKernelHasARow) {
    for (int length = 2; length <= 64; ++length) {
        for (Element element : {Element::Complex32, Element::Complex64})
            EXPECT_EQ(dft_complex::row_of(length, element).length, length);
    }
}

// Published kernels keep what the file requires; lengths beside it are free.
TEST(Table, EachRowIsTheRequiredOne) {
    const auto rows = qsvgen_test::required_rows(REQUIRED_ROWS);
    ASSERT_EQ(rows.size(), 63U);
    for (const std::vector<std::string>& cells : rows) {
        std::size_t cell = 1;
        for (Element element : dft_complex::kElements) {
            const TableRow& row = dft_complex::row_of(std::stoi(cells.at(0)), element);
            const std::string where = "length " + cells[0] + ", " + suffix(element);
            EXPECT_EQ(to_string(row.rule), cells.at(cell++)) << where;
            EXPECT_EQ(row.sums, std::stoi(cells.at(cell++))) << where;
            EXPECT_EQ(row.differences, std::stoi(cells.at(cell++))) << where;
            EXPECT_EQ(row.products, std::stoi(cells.at(cell++))) << where;
        }
    }
}

TEST(Table, ARowThatIsMissingIsNamed) {
    EXPECT_EQ(refusal({row(2, small(2)), row(6, P(small(2), small(3)))}),
              "the table of single precision: the row of length 3 is missing, which the other "
              "precision has");
}

TEST(Table, ARowThatTheOtherPrecisionLacksIsNamed) {
    EXPECT_EQ(refusal({row(2, small(2)), row(3, small(3)), row(6, P(small(2), small(3))),
                       row(66, P(P(small(2), small(3)), small(11)))}),
              "the table of double precision: the row of length 66 is missing, which the other "
              "precision has");
}

TEST(Table, ARowThatStandsTwiceIsNamed) {
    EXPECT_EQ(refusal({row(2, small(2)), row(3, small(3)), row(3, small(3)),
                       row(6, P(small(2), small(3)))}),
              "the table of single precision: the row of length 3 stands twice");
}

TEST(Table, ARowOutOfOrderIsNamed) {
    EXPECT_EQ(refusal({row(3, small(3)), row(2, small(2))}),
              "the table of single precision: the row of length 2 stands behind that of 3");
}

TEST(Table, ARowThatIsNoTransformIsNamed) {
    EXPECT_EQ(refusal({row(0, small(2))}),
              "the table of single precision: the row of length 0 is too short for a transform");
}

TEST(Table, ARuleOfAnotherLengthIsNamed) {
    EXPECT_EQ(refusal({row(2, small(2)), row(3, small(3)), row(6, P(small(2), small(5)))}),
              "the table of single precision: the row of length 6 has the rule P(2,5), which makes "
              "10 points");
}

TEST(Table, PartsThatAreNotCoprimeAreNamed) {
    EXPECT_EQ(refusal({row(2, small(2)), row(3, small(3)), row(6, P(small(2), small(4)))}),
              "the table of single precision: the row of length 6: the rule P(2,4) has parts that "
              "are not coprime");
}

TEST(Table, RulesThatCannotBeAreNamed) {
    EXPECT_EQ(refusal(small(6)),
              "the rule 6 is a small transform, which has 4, 8 or a prime number of points");
    EXPECT_EQ(refusal(small(7, SmallForm::HalfSumOfTwo)),
              "the rule 7h takes half the sum of two cosines, which only 5 points have");
    EXPECT_EQ(refusal(small(5, SmallForm::RaderOfSeven)), "the rule 5r takes the form of 7 points");
    EXPECT_EQ(refusal(small(4, SmallForm::Pairs)), "the rule 4p takes the pairs of an odd prime");
    EXPECT_EQ(refusal(S(12)),
              "the rule S12 is a split radix, which needs a power of two from 8 on");
    EXPECT_EQ(refusal(R(small(8))), "the rule R(8) is Rader's, which needs a prime");
    EXPECT_EQ(refusal(dft_complex::C(47, small(8))),
              "the rule C47(8) has a convolution shorter than 93");
    EXPECT_EQ(refusal(P(small(2), small(3), small(5))),
              "the rule P(2,3,5) has a third part of another length than the second, which it "
              "replaces");
}

TEST(Table, RulesWithTooFewOrTooManyPartsAreNamed) {
    Rule rule = P(small(2), small(3));
    rule.parts.pop_back();
    EXPECT_EQ(refusal(rule), "the rule P(2) has 1 parts, where its form has 2 or 3");
    rule = T(small(2), small(3));
    rule.parts.push_back(small(5));
    EXPECT_EQ(refusal(rule), "the rule T(2,3,5) has 3 parts, where its form has 2");
    rule = R(small(4));
    rule.parts.clear();
    EXPECT_EQ(refusal(rule), "the rule R() has 0 parts, where its form has 1");
}

TEST(Table, PartsThatMakeAnotherLengthAreNamed) {
    Rule rule = T(small(2), small(3));
    rule.length = 8;
    EXPECT_EQ(refusal(rule), "the rule T(2,3) makes 6 points, not 8");
}

TEST(Table, ARuleIsRefusedForAnyOfItsParts) {
    EXPECT_EQ(refusal(T(small(3), P(small(2), small(2)))),
              "the rule P(2,2) has parts that are not coprime");
}

TEST(Table, LengthsWithoutAKernelHaveNoRow) {
    for (int length : {-1, 0, 1, 65})
        EXPECT_THROW(dft_complex::row_of(length, Element::Complex32), std::out_of_range) << length;
}

}  // namespace
