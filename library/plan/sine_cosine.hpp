#pragma once

/**
 * @file
 * @brief Sines and cosines of multiples of pi, for the tables of plans: the same bits on every
 * machine that rounds to nearest, by sums and products alone.
 *
 * The argument is rounded before the function is evaluated: pi x in binary64, for Real32 rounded to
 * binary32 once more. What is told of errors is of the function at that angle. No case is exact but
 * those of zero: sin(pi) is what the rounding of pi leaves, 1.22e-16.
 *
 * Range: x from -4 to 4, of which plans use 0 to 3/2. Of any other x, of infinities and of NaNs the
 * value is a NaN.
 *
 * Rounding: the caller has set it to nearest, and denormals not as zero.
 */

#include "qsvgen.h"

extern "C" {

/** Correctly rounded: a test goes through every x. */
Real32 qsvgCosPi_32f(Real32 x);
Real32 qsvgSinPi_32f(Real32 x);

/** Evaluated with an error below 2^-98 of the value and rounded, which is correct rounding but
 * where the value is as close as that to the middle of two numbers: of no argument of a plan to
 * 2^20 points, nor of a million random ones. */
Real64 qsvgCosPi_64f(Real64 x);
Real64 qsvgSinPi_64f(Real64 x);
}
