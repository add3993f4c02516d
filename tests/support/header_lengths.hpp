#pragma once

/** @file @brief Lengths of the transforms, in the order in which the header lists them. */

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

#include "qsvgen.h"

namespace qsvgen_test {

#define QSVG_TEST_LENGTH(N) N,
inline constexpr int kHeaderLengths[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_LENGTH)};
#undef QSVG_TEST_LENGTH

/** Place of a length in a table that QSVG_FOR_EACH_LENGTH has made. */
constexpr std::size_t place_in_header(int length) {
    const auto* const found =
        std::find(std::begin(kHeaderLengths), std::end(kHeaderLengths), length);
    if (found == std::end(kHeaderLengths))
        throw std::out_of_range("QSVG_FOR_EACH_LENGTH of qsvgen.h lacks the length " +
                                std::to_string(length));
    return static_cast<std::size_t>(found - std::begin(kHeaderLengths));
}

}  // namespace qsvgen_test
