#pragma once

/**
 * @file
 * @brief The element types that transforms come in, each with what tests must know of it.
 *
 * Tests are written once against a traits struct of this file and run for every type of one of the
 * lists below. A new element type is a new struct here and its entries in kernel_table.hpp.
 */

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "qsvgen.h"

namespace qsvgen_test {

/** A length that no kernel has. */
inline constexpr int kNever = std::numeric_limits<int>::max();

struct Single {
    using Complex = Complex32;
    using Element = Complex32;
    using Real = Real32;
    using Bits = std::uint32_t;

    static constexpr const char* kSuffix = "32fc";
    /** Forward and inverse. */
    static constexpr std::size_t kFamilies = 2;
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
    using Element = Complex64;
    using Real = Real64;
    using Bits = std::uint64_t;

    static constexpr const char* kSuffix = "64fc";
    static constexpr std::size_t kFamilies = 2;
    static constexpr int kTwinFrom = 5;
    static constexpr double kEpsilon = std::numeric_limits<Real>::epsilon();
    static constexpr double kBasisError = 8 * kEpsilon;
    // An error at the limit of the longest prime, 61, has a standard deviation of 4.9 eps in each
    // part of an output; among the 16000 parts of all lengths one is beyond 4.5 of these by chance.
    static constexpr double kWorstError = 22 * kEpsilon;

    static constexpr bool is_chirp_length(int) { return false; }
};

/** Of the real-input DFT and the Hartley transform. */
template <class RealType, class BitsType>
struct RealElements {
    using Element = RealType;
    using Real = RealType;
    using Bits = BitsType;

    /** Forward and inverse in three layouts, and Hartley. */
    static constexpr std::size_t kFamilies = 7;
    /** Scalar code serves arrays anywhere. */
    static constexpr int kTwinFrom = kNever;
    static constexpr double kEpsilon = std::numeric_limits<Real>::epsilon();
};

struct RealSingle : RealElements<Real32, std::uint32_t> {
    static constexpr const char* kSuffix = "32f";
};

struct RealDouble : RealElements<Real64, std::uint64_t> {
    static constexpr const char* kSuffix = "64f";
};

template <class E>
inline constexpr bool kIsReal = std::is_same_v<typename E::Element, typename E::Real>;

using ComplexTypes = ::testing::Types<Single, Double>;
using RealTypes = ::testing::Types<RealSingle, RealDouble>;
using ElementTypes = ::testing::Types<Single, Double, RealSingle, RealDouble>;

struct ElementNames {
    template <class E>
    static std::string GetName(int) {
        return E::kSuffix;
    }
};

}  // namespace qsvgen_test
