#pragma once

/**
 * @file
 * @brief How each length is factored, and what its kernel may cost: the table behind all kernels.
 */

#include <string>
#include <vector>

namespace dft_complex {

/** How a small transform is calculated, where there is a choice. */
enum class SmallForm {
    Usual,         ///< 3, 5, 7, 11 from their pairs, primes from 13 on by Rader's form
    HalfSumOfTwo,  ///< 5 by half the sum and half the difference of its two cosines
    RaderOfSeven,  ///< 7 by Rader's form
    Pairs,         ///< a prime from 13 on by its pairs
};

/** Which representatives the classes modulo b have in a Cooley-Tukey decomposition. */
enum class Residues {
    FromZero,    ///< 0 to b - 1
    AroundZero,  ///< for odd b, -(b-1)/2 to (b-1)/2: the factors of classes c and -c are conjugate
};

/** A decomposition of a length, written with the functions below. */
struct Rule {
    enum class Form { Small, PrimeFactor, CooleyTukey, SplitRadix, Rader, Chirp };
    Form form;
    int length;
    std::vector<Rule> parts;  ///< in order from the input
    SmallForm small_form = SmallForm::Usual;
    Residues residues = Residues::AroundZero;
};

/** A transform run as one step, each in its lane: 2, 3, 4, 5, 7, 8 or 11 points, or a prime from 13
 * on by Rader's form. */
Rule small(int length, SmallForm form = SmallForm::Usual);
/** Prime-factor decomposition of coprime parts; the first stands nearest to the input. */
Rule P(const Rule& a, const Rule& b);
/** The same, where the first of the transforms of length b is taken by a rule of its own. */
Rule P(const Rule& a, const Rule& b, const Rule& first_of_b);
/** Split radix of a power of two from 8 on. */
Rule S(int length);
/** Cooley-Tukey decomposition; the first part stands nearest to the input. */
Rule T(const Rule& a, const Rule& b, Residues residues = Residues::AroundZero);
/** Rader's convolution of length inner.length for the prime inner.length + 1. */
Rule R(const Rule& inner);
/** Chirp convolution of length inner.length for the prime p. */
Rule C(int p, const Rule& inner);

/** The same lengths with the stages in opposite order. Throws std::invalid_argument for a rule with
 * a third part, which has no counterpart. */
Rule reversed(const Rule& rule);

/** As the table prints it: "T(12,4)", its parts by length only. */
std::string to_string(const Rule& rule);

/** All of the rule as a formula, by which tunings know the rule that they were found for:
 * "P(3,5h)". Behind the length of a small transform h stands for HalfSumOfTwo, r for RaderOfSeven,
 * p for Pairs; 0 behind T(..) for Residues::FromZero. */
std::string formula(const Rule& rule);

struct TableRow {
    int length;
    Rule rule;
    /** Packed sums, differences and products that the forward kernel may take at most, in total. */
    int sums;
    int differences;
    int products;

    int arithmetic() const { return sums + differences + products; }
};

// The lengths of the family are those of the rows, and stand nowhere else.

/** Single precision, in order of the lengths. */
const std::vector<TableRow>& single_precision_table();
/** Double precision, in order of the lengths. */
const std::vector<TableRow>& double_precision_table();

}  // namespace dft_complex
