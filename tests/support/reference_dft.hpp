#pragma once

/**
 * @file
 * @brief The definition of the transform, evaluated directly in extended precision.
 */

#include <vector>

#include "support/kernel.hpp"

namespace qsvgen_test {

struct Wide {
    long double re = 0;
    long double im = 0;
};

inline Wide operator+(Wide a, Wide b) {
    return {a.re + b.re, a.im + b.im};
}
inline Wide operator-(Wide a, Wide b) {
    return {a.re - b.re, a.im - b.im};
}
inline Wide operator*(Wide a, Wide b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline long double norm(Wide a) {
    return a.re * a.re + a.im * a.im;
}

/** exp(2 pi i numerator / denominator), for any numerator and a positive denominator. */
Wide root_of_unity(int numerator, int denominator);

/**
 * The unscaled transform. Its own error is below a thousandth of its length's limit for double
 * precision (support_test holds it to that), so what it adds to a root mean square of errors is
 * below a millionth.
 */
std::vector<Wide> reference_dft(const std::vector<Wide>& x, Direction direction);

template <class Complex>
std::vector<Wide> widened(const std::vector<Complex>& x) {
    std::vector<Wide> wide;
    wide.reserve(x.size());
    for (const auto& element : x) wide.push_back({element.re, element.im});
    return wide;
}

}  // namespace qsvgen_test
