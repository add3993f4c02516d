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
};

using ElementTypes = ::testing::Types<Single>;

struct ElementNames {
    template <class E>
    static std::string GetName(int) {
        return E::kSuffix;
    }
};

}  // namespace qsvgen_test
