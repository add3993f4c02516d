#pragma once

/**
 * @file
 * @brief Sines and cosines of multiples of pi, for the tables of plans. No reduction and no exact
 * cases: the values are the C library's at the rounded product.
 */

#include "qsvgen.h"

extern "C" {

/** Of Real32: the product is formed in binary64 and rounded, the function is that of binary32. */
Real32 qsvgCosPi_32f(Real32 x);
Real32 qsvgSinPi_32f(Real32 x);
Real64 qsvgCosPi_64f(Real64 x);
Real64 qsvgSinPi_64f(Real64 x);
}
