#include "dft_complex/rules.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>

namespace {

using dft_complex::P;
using dft_complex::R;
using dft_complex::Rule;
using dft_complex::single_precision_table;
using dft_complex::small;
using dft_complex::T;
using dft_complex::TableRow;

void for_each_rule(const Rule& rule, const std::function<void(const Rule&)>& check) {
    check(rule);
    for (const Rule& part : rule.parts) for_each_rule(part, check);
}

void for_each_rule_of_the_table(const std::function<void(const Rule&)>& check) {
    for (const TableRow& row : single_precision_table()) {
        SCOPED_TRACE("length " + std::to_string(row.length));
        for_each_rule(row.rule, check);
    }
}

bool is_prime(int n) {
    for (int d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return n > 1;
}

TEST(Rules, TheTableHasARowForEachLengthInOrder) {
    const auto& table = single_precision_table();
    ASSERT_EQ(table.size(), 63U);
    for (int length = 2; length <= 64; ++length)
        EXPECT_EQ(table[static_cast<std::size_t>(length - 2)].length, length);
}

TEST(Rules, EachRowHasARuleOfItsLength) {
    for (const TableRow& row : single_precision_table())
        EXPECT_EQ(row.rule.length, row.length) << to_string(row.rule);
}

TEST(Rules, PartsMultiplyToTheLength) {
    for_each_rule_of_the_table([](const Rule& rule) {
        if (rule.form != Rule::Form::PrimeFactor && rule.form != Rule::Form::CooleyTukey) return;
        ASSERT_EQ(rule.parts.size(), 2U);
        EXPECT_EQ(rule.parts[0].length * rule.parts[1].length, rule.length) << to_string(rule);
    });
}

TEST(Rules, PartsOfPrimeFactorRulesAreCoprime) {
    for_each_rule_of_the_table([](const Rule& rule) {
        if (rule.form != Rule::Form::PrimeFactor) return;
        EXPECT_EQ(std::gcd(rule.parts[0].length, rule.parts[1].length), 1) << to_string(rule);
    });
}

TEST(Rules, RaderStandsForAPrimeWithAConvolutionOfOneLess) {
    for_each_rule_of_the_table([](const Rule& rule) {
        if (rule.form != Rule::Form::Rader) return;
        EXPECT_TRUE(is_prime(rule.length)) << rule.length;
        EXPECT_EQ(rule.parts[0].length, rule.length - 1);
    });
}

TEST(Rules, ChirpConvolutionsAreLongEnough) {
    for_each_rule_of_the_table([](const Rule& rule) {
        if (rule.form != Rule::Form::Chirp) return;
        EXPECT_GE(rule.parts[0].length, 2 * rule.length - 1) << rule.length;
    });
}

TEST(Rules, LeavesAreTheSmallTransforms) {
    const int lengths[] = {2, 3, 4, 5, 7, 8, 11, 13, 17, 19, 23, 29, 31};
    for_each_rule_of_the_table([&](const Rule& rule) {
        if (!rule.parts.empty()) return;
        EXPECT_EQ(rule.form, Rule::Form::Small);
        EXPECT_EQ(std::count(std::begin(lengths), std::end(lengths), rule.length), 1)
            << rule.length;
    });
}

TEST(Rules, ARuleIsPrintedByItsFormAndTheLengthsOfItsParts) {
    EXPECT_EQ(to_string(small(4)), "leaf");
    EXPECT_EQ(to_string(P(small(5), small(3))), "P(5,3)");
    EXPECT_EQ(to_string(T(P(small(4), small(3)), small(4))), "T(12,4)");
    EXPECT_EQ(to_string(R(P(small(2), small(3)))), "R(6)");
    EXPECT_EQ(to_string(dft_complex::C(47, T(small(4), P(small(8), small(3))))), "C(96)");
}

TEST(Rules, ComposedRulesKnowTheirLength) {
    EXPECT_EQ(P(small(5), small(3)).length, 15);
    EXPECT_EQ(T(small(4), small(4)).length, 16);
    EXPECT_EQ(R(P(small(4), small(3))).length, 13);
    EXPECT_EQ(dft_complex::C(47, small(8)).length, 47);
}

TEST(Rules, AReversedRuleRunsItsStagesInOppositeOrder) {
    const Rule rule = T(P(small(2), small(3)), T(small(4), small(5)));
    const Rule back = reversed(rule);
    EXPECT_EQ(back.length, rule.length);
    EXPECT_EQ(to_string(back), "T(20,6)");
    EXPECT_EQ(to_string(back.parts[0]), "T(5,4)");
    EXPECT_EQ(to_string(back.parts[1]), "P(3,2)");
    EXPECT_EQ(to_string(reversed(small(7))), "leaf");
}

TEST(Rules, ArithmeticIsTheTotalOfTheRow) {
    const TableRow row{6, small(2), 8, 9, 7};
    EXPECT_EQ(row.arithmetic(), 24);
}

}  // namespace
