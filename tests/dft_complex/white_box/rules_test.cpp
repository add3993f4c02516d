#include "transforms/dft_complex/rules/rules.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

using dft_complex::double_precision_table;
using dft_complex::P;
using dft_complex::R;
using dft_complex::Residues;
using dft_complex::Rule;
using dft_complex::S;
using dft_complex::single_precision_table;
using dft_complex::small;
using dft_complex::SmallForm;
using dft_complex::T;
using dft_complex::TableRow;

void for_each_rule(const Rule& rule, const std::function<void(const Rule&)>& check) {
    check(rule);
    for (const Rule& part : rule.parts) for_each_rule(part, check);
}

struct Table {
    const char* name;
    const std::vector<TableRow>& rows;
};

std::vector<Table> tables() {
    return {{"32fc", single_precision_table()}, {"64fc", double_precision_table()}};
}

void for_each_row(const std::function<void(const TableRow&)>& check) {
    for (const Table& table : tables()) {
        for (const TableRow& row : table.rows) {
            SCOPED_TRACE(std::string(table.name) + ", length " + std::to_string(row.length));
            check(row);
        }
    }
}

void for_each_rule_of_the_tables(const std::function<void(const Rule&)>& check) {
    for_each_row([&](const TableRow& row) { for_each_rule(row.rule, check); });
}

bool is_prime(int n) {
    for (int d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return n > 1;
}

TEST(Rules, EachRowHasARuleOfItsLength) {
    for_each_row(
        [](const TableRow& row) { EXPECT_EQ(row.rule.length, row.length) << to_string(row.rule); });
}

TEST(Rules, PartsMultiplyToTheLength) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.form != Rule::Form::PrimeFactor && rule.form != Rule::Form::CooleyTukey) return;
        ASSERT_GE(rule.parts.size(), 2U);
        EXPECT_EQ(rule.parts[0].length * rule.parts[1].length, rule.length) << to_string(rule);
    });
}

TEST(Rules, AThirdPartReplacesTheSecondOfAPrimeFactorRule) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.parts.size() <= 2) return;
        EXPECT_EQ(rule.form, Rule::Form::PrimeFactor) << to_string(rule);
        ASSERT_EQ(rule.parts.size(), 3U) << to_string(rule);
        EXPECT_EQ(rule.parts[2].length, rule.parts[1].length) << to_string(rule);
    });
}

TEST(Rules, PartsOfPrimeFactorRulesAreCoprime) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.form != Rule::Form::PrimeFactor) return;
        EXPECT_EQ(std::gcd(rule.parts[0].length, rule.parts[1].length), 1) << to_string(rule);
    });
}

TEST(Rules, SplitRadixStandsForAPowerOfTwoFromEightOn) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.form != Rule::Form::SplitRadix) return;
        EXPECT_GE(rule.length, 8);
        EXPECT_EQ(rule.length & (rule.length - 1), 0) << rule.length;
    });
}

TEST(Rules, RaderStandsForAPrimeWithAConvolutionOfOneLess) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.form != Rule::Form::Rader) return;
        EXPECT_TRUE(is_prime(rule.length)) << rule.length;
        EXPECT_EQ(rule.parts[0].length, rule.length - 1);
    });
}

TEST(Rules, ChirpConvolutionsAreLongEnough) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.form != Rule::Form::Chirp) return;
        EXPECT_GE(rule.parts[0].length, 2 * rule.length - 1) << rule.length;
    });
}

TEST(Rules, LeavesAreTheSmallTransforms) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (!rule.parts.empty() || rule.form == Rule::Form::SplitRadix) return;
        EXPECT_EQ(rule.form, Rule::Form::Small);
        EXPECT_TRUE(is_prime(rule.length) || rule.length == 4 || rule.length == 8) << rule.length;
    });
}

TEST(Rules, OnlyFiveTakesTheHalfSumOfItsCosines) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.small_form == SmallForm::HalfSumOfTwo) {
            EXPECT_EQ(rule.length, 5);
        }
    });
}

TEST(Rules, OnlySevenTakesRadersFormBesideTheUsualOne) {
    for_each_rule_of_the_tables([](const Rule& rule) {
        if (rule.small_form == SmallForm::RaderOfSeven) {
            EXPECT_EQ(rule.length, 7);
        }
    });
}

TEST(Rules, SinglePrecisionKnowsNoFormBesideTheUsualOne) {
    for (const TableRow& row : single_precision_table()) {
        for_each_rule(row.rule, [&](const Rule& rule) {
            EXPECT_EQ(rule.small_form, SmallForm::Usual) << "length " << row.length;
        });
    }
}

TEST(Rules, CoprimePartsOfDoublePrecisionAlwaysRunWithoutTwiddleFactors) {
    for (const TableRow& row : double_precision_table()) {
        for_each_rule(row.rule, [&](const Rule& rule) {
            if (rule.form != Rule::Form::CooleyTukey) return;
            EXPECT_NE(std::gcd(rule.parts[0].length, rule.parts[1].length), 1)
                << "length " << row.length << ": " << to_string(rule);
        });
    }
}

TEST(Rules, ARuleIsPrintedByItsFormAndTheLengthsOfItsParts) {
    for (int length : {2, 3, 4, 5, 8})
        EXPECT_EQ(to_string(small(length)), "leaf") << "length " << length;
    EXPECT_EQ(to_string(P(small(5), small(3))), "P(5,3)");
    EXPECT_EQ(to_string(T(P(small(4), small(3)), small(4))), "T(12,4)");
    EXPECT_EQ(to_string(R(P(small(2), small(3)))), "R(6)");
    EXPECT_EQ(to_string(S(16)), "S");
    EXPECT_EQ(to_string(dft_complex::C(47, T(small(4), P(small(8), small(3))))), "C(96)");
}

TEST(Rules, SevenAndElevenArePrintedAsDirectForms) {
    EXPECT_EQ(to_string(small(7)), "D");
    EXPECT_EQ(to_string(small(11)), "D");
}

TEST(Rules, SmallPrimesFromThirteenOnArePrintedByTheLengthOfTheirConvolution) {
    for (int p : {13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53, 59, 61})
        EXPECT_EQ(to_string(small(p)), "R(" + std::to_string(p - 1) + ")");
}

TEST(Rules, APrimeFactorRuleIsPrintedWithoutTheRuleOfItsFirstTransform) {
    EXPECT_EQ(to_string(P(small(5), small(7), small(7, SmallForm::RaderOfSeven))), "P(5,7)");
}

TEST(Rules, ComposedRulesKnowTheirLength) {
    EXPECT_EQ(P(small(5), small(3)).length, 15);
    EXPECT_EQ(T(small(4), small(4)).length, 16);
    EXPECT_EQ(R(P(small(4), small(3))).length, 13);
    EXPECT_EQ(dft_complex::C(47, small(8)).length, 47);
    EXPECT_EQ(S(32).length, 32);
    EXPECT_EQ(P(small(5), small(7), small(7, SmallForm::RaderOfSeven)).length, 35);
}

TEST(Rules, AReversedRuleRunsItsStagesInOppositeOrder) {
    const Rule rule = T(P(small(2), small(3)), T(small(4), small(5)));
    const Rule back = reversed(rule);
    EXPECT_EQ(back.length, rule.length);
    EXPECT_EQ(to_string(back), "T(20,6)");
    EXPECT_EQ(to_string(back.parts[0]), "T(5,4)");
    EXPECT_EQ(to_string(back.parts[1]), "P(3,2)");
    EXPECT_EQ(to_string(reversed(small(7))), "D");
}

TEST(Rules, AReversedCooleyTukeyRuleKeepsItsResidues) {
    for (Residues residues : {Residues::FromZero, Residues::AroundZero})
        EXPECT_EQ(reversed(T(small(5), small(3), residues)).residues, residues);
}

TEST(Rules, ARuleWithAThirdPartIsNotReversed) {
    EXPECT_THROW(reversed(P(small(5), small(7), small(7, SmallForm::RaderOfSeven))),
                 std::invalid_argument);
}

TEST(Rules, AFormulaTellsAllThatDistinguishesARule) {
    EXPECT_EQ(formula(P(P(small(2), small(5, SmallForm::HalfSumOfTwo)), small(3))), "P(P(2,5h),3)");
    EXPECT_EQ(formula(P(small(5), small(7), small(7, SmallForm::RaderOfSeven))), "P(5,7,7r)");
    EXPECT_EQ(formula(P(small(2), small(23, SmallForm::Pairs))), "P(2,23p)");
    EXPECT_EQ(formula(T(small(5), small(5), Residues::FromZero)), "T(5,5)0");
    EXPECT_EQ(formula(T(S(16), small(3))), "T(S16,3)");
    EXPECT_EQ(formula(dft_complex::C(47, R(small(4)))), "C47(R(4))");
}

TEST(Rules, ResiduesStandAroundZeroUnlessAskedOtherwise) {
    EXPECT_EQ(T(small(5), small(3)).residues, Residues::AroundZero);
}

TEST(Rules, ArithmeticIsTheTotalOfTheRow) {
    const TableRow row{6, small(2), 8, 9, 7};
    EXPECT_EQ(row.arithmetic(), 24);
}

}  // namespace
