#pragma once

/**
 * @file
 * @brief Numbers of some 106 bits as sums of two Real64, for tables that are rounded once.
 *
 * T. J. Dekker, "A floating-point technique for extending the available precision", Numerische
 * Mathematik 18, 1971; the sum of any two by D. E. Knuth, "The Art of Computer Programming",
 * volume 2, section 4.2.2. All of it presumes rounding to nearest and that nothing overflows, and
 * asks for no fused operation.
 */

#include "qsvgen.h"

namespace plan {

/** high + low, where high is the sum rounded. */
struct DoubleDouble {
    Real64 high;
    Real64 low;
};

inline constexpr DoubleDouble operator-(DoubleDouble a) {
    return {-a.high, -a.low};
}

/** a + b exactly. */
inline DoubleDouble exact_sum(Real64 a, Real64 b) {
    const Real64 sum = a + b;
    const Real64 part_of_b = sum - a;
    return {sum, (a - (sum - part_of_b)) + (b - part_of_b)};
}

/** a + b exactly, where a is zero or no smaller than b in magnitude. */
inline DoubleDouble exact_sum_of_descending(Real64 a, Real64 b) {
    const Real64 sum = a + b;
    return {sum, b - (sum - a)};
}

/** a as the sum of two parts of 26 bits, so that products of such parts are exact. */
inline DoubleDouble halved(Real64 a) {
    const Real64 shifted = a * 0x1.0000002p+27;
    const Real64 high = shifted - (shifted - a);
    return {high, a - high};
}

/** a b exactly. */
inline DoubleDouble exact_product(Real64 a, Real64 b) {
    const Real64 product = a * b;
    const DoubleDouble x = halved(a);
    const DoubleDouble y = halved(b);
    const Real64 rest = x.high * y.high - product + x.high * y.low + x.low * y.high;
    return {product, rest + x.low * y.low};
}

/** a + b, the error below 2^-104 of the sum unless the sum is much smaller than a and b. */
inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble sum = exact_sum(a.high, b.high);
    return exact_sum_of_descending(sum.high, sum.low + (a.low + b.low));
}

/** a + b, as exactly. */
inline DoubleDouble operator+(DoubleDouble a, Real64 b) {
    const DoubleDouble sum = exact_sum(a.high, b);
    return exact_sum_of_descending(sum.high, sum.low + a.low);
}

/** a b, the error below 2^-101 of the product. */
inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble product = exact_product(a.high, b.high);
    return exact_sum_of_descending(product.high, product.low + (a.high * b.low + a.low * b.high));
}

}  // namespace plan
