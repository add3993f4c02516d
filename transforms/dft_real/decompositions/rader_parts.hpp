#pragma once

/**
 * @file
 * @brief What Rader's convolution is put together from, for the general form and that of 13 points.
 */

#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real {

/** a times the constant c, as two rows. */
Complex product(RowArithmetic& m, const Complex& a, const kernelgen::ExactComplex& c);

/** Bin k of exp(-2 pi i g^(-j) / p) over p - 1, doubled unless it is its own conjugate; of odd k
 * times -i, so that it is the spectrum of real values. */
kernelgen::ExactComplex convolution_constant(int p, int g, int k);

/** Points 0 to q - 1 of the inverse transform of length 2 q of a half spectrum whose odd bins alone
 * are present: the rest is the opposite of these. */
Reals inverse_of_odd_bins(RowArithmetic& m, const HalfSpectrum& X, ElevenPoints eleven);

/** Thirteen points; see there. */
HalfSpectrum rader_of_thirteen(RowArithmetic& m, const Reals& x);

}  // namespace dft_real
