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
 * Rounding: to nearest, which who calls them must have set, without denormals as zero.
 */

#include "qsvgen.h"

extern "C" {

/**
 * Reduced by multiples of pi/2 to at most pi/4 (W. J. Cody and W. Waite, "Software Manual for the
 * Elementary Functions", 1980), then Taylor's series to the orders 16 and 17, all in binary64 with
 * an error below 2^-51 of the value, and rounded.
 */
Real32 qsvgCosPi_32f(Real32 x);
Real32 qsvgSinPi_32f(Real32 x);

/**
 * Reduced by multiples of pi/128 to at most pi/256, whose sines are a table (P. T. P. Tang,
 * "Table-lookup algorithms for elementary functions and their error analysis", 10th IEEE Symposium
 * on Computer Arithmetic, 1991), then Taylor's series to the orders 11 and 12, in numbers of twice
 * the precision of binary64 with an error below 2^-98 of the value, and rounded.
 */
Real64 qsvgCosPi_64f(Real64 x);
Real64 qsvgSinPi_64f(Real64 x);
}
