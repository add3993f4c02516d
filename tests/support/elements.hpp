#pragma once

/**
 * @file
 * @brief The element types that transforms come in, each with what tests must know of it.
 *
 * Tests are written once against a traits struct of this file and run for every type of
 * ElementTypes. A new element type is a new struct here and its entries in kernel_table.hpp.
 */

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "qsvgen.h"

namespace qsvgen_test {

struct Single {
    using Complex = Complex32;
    using Real = Real32;
    using Bits = std::uint32_t;

    static constexpr const char* kSuffix = "32fc";
    /** From this length on a kernel has a hidden twin for unaligned arrays. */
    static constexpr int kTwinFrom = 6;
    static constexpr double kEpsilon = std::numeric_limits<Real>::epsilon();
    /** Largest error of one unscaled output for an input that is 1 in one place. */
    static constexpr double kBasisError = 1e-6;
    /** Largest error of one unscaled output at any length, for inputs between -1 and 1. */
    static constexpr double kWorstError = 2.5e-6;

    /** Lengths whose convolution is done with longer transforms, which costs some accuracy. */
    static constexpr bool is_chirp_length(int n) { return n == 47 || n == 59; }
};

struct Double {
    using Complex = Complex64;
    using Real = Real64;
    using Bits = std::uint64_t;

    static constexpr const char* kSuffix = "64fc";
    static constexpr int kTwinFrom = 5;
    static constexpr double kEpsilon = std::numeric_limits<Real>::epsilon();
    static constexpr double kBasisError = 8 * kEpsilon;
    // An error at the limit of the longest prime, 61, has a standard deviation of 4.9 eps in each
    // part of an output; among the 16000 parts of all lengths one is beyond 4.5 of these by chance.
    static constexpr double kWorstError = 22 * kEpsilon;

    static constexpr bool is_chirp_length(int) { return false; }
};

using ElementTypes = ::testing::Types<Single, Double>;

struct ElementNames {
    template <class E>
    static std::string GetName(int) {
        return E::kSuffix;
    }
};

}  // namespace qsvgen_test
