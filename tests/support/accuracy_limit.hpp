#pragma once

/** @file @brief How large the relative error of a transform of one length may be. */

#include <cmath>

#include "support/kernel.hpp"

namespace qsvgen_test {

/** Lengths of a prime from 17 to 31 and another factor. The roundings of Rader's form alone reach
 * the limit of other composites; docs/accuracy.md shows it for every order of its factors. */
inline bool holds_rader_form_of_long_prime(int length) {
    for (int prime : {17, 19, 23, 29, 31}) {
        if (length != prime && length % prime == 0) return true;
    }
    return false;
}

/** In units of eps sqrt(log2 N). */
template <class E>
double accuracy_factor(int length) {
    if constexpr (kIsReal<E>) {
        if (is_power_of_two(length)) return 0.32;
        return is_prime(length) ? 0.60 : 0.45;
    } else {
        if (E::is_chirp_length(length)) return 0.90;
        // Their convolutions, of lengths 52 and 58, hold further ones, of 12 and 28.
        if (length == 53) return 0.49;
        if (length == 59) return 0.53;
        if (holds_rader_form_of_long_prime(length)) return 0.40;
        if (is_power_of_two(length)) return 0.30;
        return is_prime(length) ? 0.45 : 0.36;
    }
}

/** Limit on the root mean square of |error| / |result|, in the Euclidean norm. */
template <class E>
double accuracy_limit(int length) {
    return accuracy_factor<E>(length) * E::kEpsilon *
           std::sqrt(std::log2(static_cast<double>(length)));
}

}  // namespace qsvgen_test
