#pragma once

/** @file @brief How large the relative error of a transform of one length may be. */

#include <cmath>

#include "support/kernel_table.hpp"

namespace qsvgen_test {

/** Lengths of a prime from 17 to 31 and another factor, and the prime whose convolution holds a
 * second one. The roundings of Rader's form alone reach the limit of other composites;
 * docs/accuracy.md shows it for every order of its factors. */
inline bool holds_rader_form_of_long_prime(int length) {
    for (int prime : {17, 19, 23, 29, 31}) {
        if (length != prime && length % prime == 0) return true;
    }
    return false;
}

inline constexpr int kPrimeOfTwoConvolutions = 53;

/** Limit on the root mean square of |error| / |result|, in the Euclidean norm. */
template <class E>
double accuracy_limit(int length) {
    double c = 0.36;
    if (is_power_of_two(length)) {
        c = 0.30;
    } else if (is_chirp_length(length)) {
        c = 0.90;
    } else if (length == kPrimeOfTwoConvolutions) {
        c = 0.49;
    } else if (is_prime(length)) {
        c = 0.45;
    } else if (holds_rader_form_of_long_prime(length)) {
        c = 0.40;
    }
    return c * E::kEpsilon * std::sqrt(std::log2(static_cast<double>(length)));
}

}  // namespace qsvgen_test
