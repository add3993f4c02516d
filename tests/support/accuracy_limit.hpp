#pragma once

/** @file @brief How large the relative error of a transform of one length may be. */

#include <cmath>

#include "support/kernel_table.hpp"

namespace qsvgen_test {

/** Limit on the root mean square of |error| / |result|, in the Euclidean norm. */
template <class E>
double accuracy_limit(int length) {
    double c = 0.36;
    if (is_power_of_two(length)) {
        c = 0.30;
    } else if (is_chirp_length(length)) {
        c = 0.90;
    } else if (is_prime(length)) {
        c = 0.45;
    }
    return c * E::kEpsilon * std::sqrt(std::log2(static_cast<double>(length)));
}

}  // namespace qsvgen_test
