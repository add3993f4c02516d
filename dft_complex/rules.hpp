#pragma once

/**
 * @file
 * @brief How each length is factored, and what its kernel may cost: the table behind all kernels.
 */

#include <string>
#include <vector>

namespace dft_complex {

/** A decomposition of a length, written with the functions below. */
struct Rule {
    enum class Form { Small, PrimeFactor, CooleyTukey, Rader, Chirp };
    Form form;
    int length;
    std::vector<Rule> parts;
};

/** A transform run as one step, each in its lane: 2, 3, 4, 5, 7, 8 or 11 points, or a prime from 13
 * to 31 by Rader's form. */
Rule small(int length);
/** Prime-factor decomposition of coprime parts; the first stands nearest to the input. */
Rule P(const Rule& a, const Rule& b);
/** Cooley-Tukey decomposition; the first part stands nearest to the input. */
Rule T(const Rule& a, const Rule& b);
/** Rader's convolution of length inner.length for the prime inner.length + 1. */
Rule R(const Rule& inner);
/** Chirp convolution of length inner.length for the prime p. */
Rule C(int p, const Rule& inner);

/** The same lengths with the stages in opposite order. */
Rule reversed(const Rule& rule);

/** As the table prints it: "T(12,4)", its parts by length only. */
std::string to_string(const Rule& rule);

struct TableRow {
    int length;
    Rule rule;
    /** Packed sums, differences and products that the forward kernel may take at most, in total. */
    int sums;
    int differences;
    int products;

    int arithmetic() const { return sums + differences + products; }
};

/** Single precision, lengths 2 to 64 in order. */
const std::vector<TableRow>& single_precision_table();

}  // namespace dft_complex
