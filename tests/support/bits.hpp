#pragma once

/** @file @brief Comparison of signals bit by bit, with messages that show the bits. */

#include <gtest/gtest.h>

#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <type_traits>
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

template <class Real>
bool same_number_bits(const Real& a, const Real& b) {
    using Bits = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

template <class E>
bool same_element_bits(const typename E::Element& a, const typename E::Element& b) {
    if constexpr (kIsReal<E>) {
        return same_number_bits(a, b);
    } else {
        return same_number_bits(a.re, b.re) && same_number_bits(a.im, b.im);
    }
}

template <class E>
std::string show_element(const typename E::Element& value) {
    if constexpr (kIsReal<E>) {
        return show<E>(value);
    } else {
        return "re " + show<E>(value.re) + " im " + show<E>(value.im);
    }
}

/** Index of the first element that differs in some bit, or -1. */
template <class E>
int first_difference(const std::vector<typename E::Element>& a,
                     const std::vector<typename E::Element>& b) {
    for (std::size_t k = 0; k < a.size(); ++k) {
        if (!same_element_bits<E>(a[k], b[k])) return static_cast<int>(k);
    }
    return -1;
}

template <class E>
testing::AssertionResult same_bits(const std::vector<typename E::Element>& expected,
                                   const std::vector<typename E::Element>& actual) {
    if (expected.size() != actual.size()) {
        return testing::AssertionFailure()
               << actual.size() << " elements instead of " << expected.size();
    }
    const int k = first_difference<E>(expected, actual);
    if (k < 0) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "first different element " << k << ": "
           << show_element<E>(actual[static_cast<std::size_t>(k)]) << " instead of "
           << show_element<E>(expected[static_cast<std::size_t>(k)]);
}

/** Two NaNs count as equal, whatever their bits, and nothing else counts as equal to one. */
template <class E>
testing::AssertionResult same_bits_or_nan(const std::vector<typename E::Element>& expected,
                                          const std::vector<typename E::Element>& actual) {
    const auto take_nan = [](const auto& from, auto& to) {
        if (std::isnan(from) && std::isnan(to)) to = from;
    };
    auto without_nan_bits = actual;
    for (std::size_t i = 0; i < actual.size() && i < expected.size(); ++i) {
        if constexpr (kIsReal<E>) {
            take_nan(expected[i], without_nan_bits[i]);
        } else {
            take_nan(expected[i].re, without_nan_bits[i].re);
            take_nan(expected[i].im, without_nan_bits[i].im);
        }
    }
    return same_bits<E>(expected, without_nan_bits);
}

}  // namespace qsvgen_test
