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

#include "dft_complex/complex_algebra.hpp"
#include "dft_complex/real_dft.hpp"

namespace dft_complex {

/** DFT of `radix` points, or for SmallTransform::kSum the sum of two. */
Points small_transform(ComplexAlgebra& algebra, int radix, const Points& x);

/** DFT of x[0], f x[1] and conj(f) x[2], f a factor for each transform: with the factors taken into
 * the sum and the difference of the pair, sin(2 pi / 3) is folded into them. 16 + 10 where the
 * factors apart take 16 + 12. */
Points three_with_conjugate_factors(ComplexAlgebra& algebra, const Points& x,
                                    const std::vector<ExactComplex>& factors);

/** Odd prime p by its pairs: h = (p - 1) / 2 cosines and sines of 2 pi j / p. */
Points direct_form(ComplexAlgebra& algebra, const Points& x);

/** Primes 13 to 31: Rader's convolution by a real DFT of the permuted points and its transpose, so
 * that each transform stays in its lane and every constant is real. */
Points rader_in_lanes(ComplexAlgebra& algebra, const Points& x);

}  // namespace dft_complex
