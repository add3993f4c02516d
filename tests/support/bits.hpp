#pragma once

/** @file @brief Comparison of signals bit by bit, with messages that show the bits. */

#include <gtest/gtest.h>

#include <bit>
#include <cinttypes>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "support/elements.hpp"

namespace qsvgen_test {

/** Bits first, since two different values may print alike. */
template <class E>
std::string show(const typename E::Real& value) {
    char text[64];
    std::snprintf(text, sizeof text, "0x%0*" PRIX64 " (%.*g)", static_cast<int>(2 * sizeof(value)),
                  static_cast<std::uint64_t>(std::bit_cast<typename E::Bits>(value)),
                  std::numeric_limits<typename E::Real>::max_digits10, static_cast<double>(value));
    return text;
}

/** Index of the first element that differs in some bit, or -1. */
template <class E>
int first_difference(const std::vector<typename E::Complex>& a,
                     const std::vector<typename E::Complex>& b) {
    using Bits = typename E::Bits;
    for (std::size_t k = 0; k < a.size(); ++k) {
        const bool same = std::bit_cast<Bits>(a[k].re) == std::bit_cast<Bits>(b[k].re) &&
                          std::bit_cast<Bits>(a[k].im) == std::bit_cast<Bits>(b[k].im);
        if (!same) return static_cast<int>(k);
    }
    return -1;
}

template <class E>
testing::AssertionResult same_bits(const std::vector<typename E::Complex>& expected,
                                   const std::vector<typename E::Complex>& actual) {
    if (expected.size() != actual.size()) {
        return testing::AssertionFailure()
               << actual.size() << " elements instead of " << expected.size();
    }
    const int k = first_difference<E>(expected, actual);
    if (k < 0) return testing::AssertionSuccess();
    const auto& e = expected[static_cast<std::size_t>(k)];
    const auto& a = actual[static_cast<std::size_t>(k)];
    return testing::AssertionFailure()
           << "first different element " << k << ": re " << show<E>(a.re) << " im " << show<E>(a.im)
           << " instead of re " << show<E>(e.re) << " im " << show<E>(e.im);
}

}  // namespace qsvgen_test
