#include "transforms/dft_complex/rules/table.hpp"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "transforms/residues/residues.hpp"

namespace dft_complex {
namespace {

using residues::is_prime;

[[noreturn]] void refuse(const Rule& rule, const std::string& reason) {
    throw std::invalid_argument("the rule " + formula(rule) + " " + reason);
}

void expect_parts(const Rule& rule, std::size_t fewest, std::size_t most) {
    if (rule.parts.size() < fewest || rule.parts.size() > most)
        refuse(rule, "has " + std::to_string(rule.parts.size()) + " parts, where its form has " +
                         std::to_string(fewest) +
                         (most > fewest ? " or " + std::to_string(most) : std::string()));
}

void expect_product_of_two(const Rule& rule) {
    const long product = static_cast<long>(rule.parts[0].length) * rule.parts[1].length;
    if (product != rule.length)
        refuse(rule,
               "makes " + std::to_string(product) + " points, not " + std::to_string(rule.length));
}

void check_small(const Rule& rule) {
    expect_parts(rule, 0, 0);
    const bool composite = rule.length == 4 || rule.length == 8;
    if (!composite && !is_prime(rule.length))
        refuse(rule, "is a small transform, which has 4, 8 or a prime number of points");
    if (rule.small_form == SmallForm::HalfSumOfTwo && rule.length != 5)
        refuse(rule, "takes half the sum of two cosines, which only 5 points have");
    if (rule.small_form == SmallForm::RaderOfSeven && rule.length != 7)
        refuse(rule, "takes the form of 7 points");
    if (rule.small_form == SmallForm::Pairs && (composite || rule.length == 2))
        refuse(rule, "takes the pairs of an odd prime");
}

void check_prime_factor(const Rule& rule) {
    expect_parts(rule, 2, 3);
    expect_product_of_two(rule);
    if (std::gcd(rule.parts[0].length, rule.parts[1].length) != 1)
        refuse(rule, "has parts that are not coprime");
    if (rule.parts.back().length != rule.parts[1].length)
        refuse(rule, "has a third part of another length than the second, which it replaces");
}

}  // namespace

void check(const Rule& rule) {
    switch (rule.form) {
        case Rule::Form::Small:
            check_small(rule);
            break;
        case Rule::Form::PrimeFactor:
            check_prime_factor(rule);
            break;
        case Rule::Form::CooleyTukey:
            expect_parts(rule, 2, 2);
            expect_product_of_two(rule);
            break;
        case Rule::Form::SplitRadix:
            expect_parts(rule, 0, 0);
            if (rule.length < 8 || (rule.length & (rule.length - 1)) != 0)
                refuse(rule, "is a split radix, which needs a power of two from 8 on");
            break;
        case Rule::Form::Rader:
            expect_parts(rule, 1, 1);
            if (!is_prime(rule.length)) refuse(rule, "is Rader's, which needs a prime");
            if (rule.parts[0].length != rule.length - 1)
                refuse(rule, "has a convolution of another length than " +
                                 std::to_string(rule.length - 1));
            break;
        case Rule::Form::Chirp:
            expect_parts(rule, 1, 1);
            if (rule.parts[0].length < 2 * rule.length - 1)
                refuse(rule,
                       "has a convolution shorter than " + std::to_string(2 * rule.length - 1));
            break;
    }
    for (const Rule& part : rule.parts) check(part);
}

namespace {

void check_rows(const std::vector<TableRow>& rows, const std::string& table) {
    int last = 0;
    for (const TableRow& row : rows) {
        const std::string name = table + ": the row of length " + std::to_string(row.length);
        if (row.length < 2) throw std::invalid_argument(name + " is too short for a transform");
        if (row.length == last) throw std::invalid_argument(name + " stands twice");
        if (row.length < last)
            throw std::invalid_argument(name + " stands behind that of " + std::to_string(last));
        last = row.length;
        try {
            check(row.rule);
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument(name + ": " + error.what());
        }
        if (row.rule.length != row.length)
            throw std::invalid_argument(name + " has the rule " + formula(row.rule) +
                                        ", which makes " + std::to_string(row.rule.length) +
                                        " points");
    }
}

std::vector<int> lengths_of(const std::vector<TableRow>& rows) {
    std::vector<int> result;
    for (const TableRow& row : rows) result.push_back(row.length);
    return result;
}

void expect_lengths(const std::vector<int>& wanted, const std::vector<int>& there,
                    const std::string& table) {
    std::vector<int> missing;
    std::set_difference(wanted.begin(), wanted.end(), there.begin(), there.end(),
                        std::back_inserter(missing));
    if (!missing.empty())
        throw std::invalid_argument(table + ": the row of length " +
                                    std::to_string(missing.front()) +
                                    " is missing, which the other precision has");
}

const std::vector<TableRow>& table_of(Element element) {
    static const bool checked = (check(single_precision_table(), double_precision_table()), true);
    static_cast<void>(checked);
    return element == Element::Complex32 ? single_precision_table() : double_precision_table();
}

}  // namespace

void check(const std::vector<TableRow>& single_precision,
           const std::vector<TableRow>& double_precision) {
    const std::string single = "the table of single precision";
    const std::string doubled = "the table of double precision";
    check_rows(single_precision, single);
    check_rows(double_precision, doubled);
    expect_lengths(lengths_of(double_precision), lengths_of(single_precision), single);
    expect_lengths(lengths_of(single_precision), lengths_of(double_precision), doubled);
}

const std::vector<int>& lengths() {
    static const std::vector<int> all = lengths_of(table_of(Element::Complex32));
    return all;
}

const TableRow& row_of(int length, Element element) {
    const std::vector<TableRow>& rows = table_of(element);
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const TableRow& r) { return r.length == length; });
    if (row == rows.end())
        throw std::out_of_range("there is no kernel of length " + std::to_string(length));
    return *row;
}

}  // namespace dft_complex
