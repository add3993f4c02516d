#pragma once

/**
 * @file
 * @brief The small DFTs that every decomposition ends in, run in all lanes of a group at once.
 *
 * Forward direction, natural order, over complex vectors. Real operations for a split group:
 * 2: 4 + 0 (sums + products), 3: 12 + 4, 4: 16 + 0, 5: 32 + 16, 7: 60 + 36, 8: 52 + 4,
 * 11: 140 + 100.
 */

#include <vector>

#include "transforms/dft_complex/layouts/complex_algebra.hpp"
#include "transforms/dft_complex/small_transforms/dft_over_reals.hpp"

namespace dft_complex {

/** DFT of `radix` points, or for SmallTransform::kSum the sum of two. */
Points small_transform(ComplexAlgebra& algebra, int radix, SmallForm form, const Points& x);

/** A constant factor for each transform that shares the vectors. */
using Factors = std::vector<ExactComplex>;

/** Whether all of `factors` are 1. */
bool all_one(const Factors& factors);
/** Whether `factors[j]` and `factors[p - j]` are conjugate for j = 1 to p - 1 and not all are 1. */
bool conjugate_pairs(const std::vector<Factors>& factors);
/** Whether these factors before a transform of that form are taken by with_conjugate_factors.
 * Rader's form of seven points has no pairs that could take them. */
bool folds_conjugate_factors(SmallForm form, const std::vector<Factors>& factors);

/** DFT of an odd prime number of points x[j] times factors[j], which are conjugate pairs: they are
 * taken into the sum and the difference of a pair, which spares turning a vector by a quarter, and
 * for three points sin(2 pi / 3) is folded into them (16 + 10 where factors apart take 16 + 12).
 * Pairs are what `form` is made of, too (std::invalid_argument), in the usual way or by the half
 * sum. */
Points with_conjugate_factors(ComplexAlgebra& algebra, const Points& x,
                              const std::vector<Factors>& factors, SmallForm form);

/** Odd prime p by its pairs: h = (p - 1) / 2 cosines and sines of 2 pi j / p. */
Points direct_form(ComplexAlgebra& algebra, const Points& x);

/** Seven points by Rader's convolution, with the parts of its spectrum as they are. */
Points seven_by_rader(ComplexAlgebra& algebra, const Points& x);

/** Rader's convolution by a real DFT of the permuted points and its transpose, so that each
 * transform stays in its lane and every constant is real. Primes 7 and 13 to 61. */
Points rader_over_reals(ComplexAlgebra& algebra, const Points& x);

}  // namespace dft_complex
