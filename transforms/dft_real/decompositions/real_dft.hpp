#pragma once

/**
 * @file
 * @brief Real transforms as their formulas over real and complex values.
 *
 * A half spectrum holds bins 0 to floor(n/2) of a conjugate-symmetric spectrum; the imaginary parts
 * of bin 0 and, for even n, of bin n/2 are absent. Given to an inverse transform, its interior bins
 * hold twice their value, since each stands for its conjugate as well.
 *
 * Values may be absent (structural zeros); nothing is calculated with them, so that a transform of
 * a signal with gaps costs what its other values need.
 *
 * Orders name the factors from the first stage to the last. Coprime factors are joined without
 * twiddle factors (Good, 1958; Burrus, 1977), powers of a prime by Cooley and Tukey, 1965, and a
 * prime from 13 on is a cyclic convolution (Rader, 1968).
 */

#include "transforms/dft_real/decompositions/row_arithmetic.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"

namespace dft_real {

using Order = std::vector<int>;
using HalfSpectrum = Complexes;

/** X[k] = sum of x[n] exp(-2 pi i n k / N), k = 0 to floor(N/2). */
HalfSpectrum real_dft(RowArithmetic& m, const Order& order, const Reals& x);

/** How an inverse transform takes 11 points. */
enum class ElevenPoints { Rader, Dense };

/** Real values that leave a convolution are as cheap by dense rows and have fewer sums. */
inline constexpr ElevenPoints kElevenPointsBehindConvolutions = ElevenPoints::Dense;

/** x[n] = sum over the half spectrum of re X cos(2 pi n k / N) - im X sin(2 pi n k / N). */
Reals inverse_real_dft(RowArithmetic& m, const Order& order, const HalfSpectrum& X,
                       ElevenPoints eleven = ElevenPoints::Rader);

/** X[k] = sum of x[n] exp(-2 pi i n k / N), all N bins of complex values. */
Complexes complex_dft(RowArithmetic& m, const Order& order, const Complexes& x);
/** The same with the opposite sign of the exponent. */
Complexes complex_inverse_dft(RowArithmetic& m, const Order& order, const Complexes& x);

/** Which of the forms below makes a transform of an order. */
enum class Method {
    BetweenTwos,      ///< real_dft_between_twos
    Coprime,          ///< coprime_real_dft, coprime_inverse
    PowerOfTwo,       ///< radix_two_real_dft, split_radix_inverse
    PowerOfOddPrime,  ///< power_real_dft, power_inverse
    Dense,            ///< dense_real_dft, dense_inverse
    Rader,            ///< rader_real_dft, rader_of_thirteen, rader_inverse
};
Method method_of_real_dft(const Order& order);
Method method_of_inverse(const Order& order, ElevenPoints eleven = ElevenPoints::Rader);

// What these three are made of. An order of several coprime groups runs all groups but the last as
// its first part: {5, 3, 2, 2} is 15, made of 5 and 3, and then 4.

/** An order cut in two coprime parts, or the order and an empty one for the power of a prime. */
struct CoprimeParts {
    Order first;
    Order second;
};
CoprimeParts coprime_parts(const Order& order);

/** Orders {2, ..., 2} with odd factors between, which make 4 times an odd length. */
HalfSpectrum real_dft_between_twos(RowArithmetic& m, const Order& between, const Reals& x);
HalfSpectrum coprime_real_dft(RowArithmetic& m, const CoprimeParts& parts, const Reals& x);
Reals coprime_inverse(RowArithmetic& m, const CoprimeParts& parts, const HalfSpectrum& X,
                      ElevenPoints eleven = ElevenPoints::Rader);
Complexes coprime_complex_dft(RowArithmetic& m, const CoprimeParts& parts, const Complexes& x);

/** Whether rows are made for imaginary parts or for their opposites: they lead with the first term
 * that is positive then, which shows in the last bits. */
enum class ImaginarySign { Positive, Negative };

/** Odd primes to 11, a row a bin. */
HalfSpectrum dense_real_dft(RowArithmetic& m, const Reals& x,
                            ImaginarySign sign = ImaginarySign::Positive);
Reals dense_inverse(RowArithmetic& m, const HalfSpectrum& X);
/** Any odd prime, by the transforms of the real and of the imaginary parts. */
Complexes dense_complex_dft(RowArithmetic& m, const Complexes& x);

/** Powers of two: a split into halves whose odd bins are a transform of their own, by radix 4. */
HalfSpectrum radix_two_real_dft(RowArithmetic& m, const Reals& x);
/** Powers of two by split radix (Sorensen, Jones, Heideman and Burrus, "Real-valued fast Fourier
 * transform algorithms", 1987), run backwards. */
Reals split_radix_inverse(RowArithmetic& m, const HalfSpectrum& X);
Complexes split_radix_complex_dft(RowArithmetic& m, const Complexes& x);

/** Powers of an odd prime. */
HalfSpectrum power_real_dft(RowArithmetic& m, const Order& order, const Reals& x);
Reals power_inverse(RowArithmetic& m, const Order& order, const HalfSpectrum& X);
Complexes power_complex_dft(RowArithmetic& m, const Order& order, const Complexes& x);

/** An odd prime p as a convolution of length p - 1, `inner` its order. */
HalfSpectrum rader_real_dft(RowArithmetic& m, const Order& inner, const Reals& x,
                            ElevenPoints eleven = ElevenPoints::Rader);
Reals rader_inverse(RowArithmetic& m, const Order& inner, const HalfSpectrum& X);

/** x exp(-2 pi i numerator / denominator): two rows, or less where the angle allows. */
Complex rotated(RowArithmetic& m, const Complex& x, long numerator, long denominator);

inline std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

inline Complex conjugate(const Complex& x) {
    return {x.re, -x.im};
}

/** Bin k, 0 to n - 1, of the spectrum of which X is one half. */
Complex bin(const HalfSpectrum& X, int n, int k);

/** Stores the value of bin k, 0 to n - 1, in the half spectrum X. */
void set_bin(HalfSpectrum& X, int n, int k, const Complex& value);

}  // namespace dft_real
