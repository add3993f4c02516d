/**
 * @file
 * @brief Accesses of vectors and half vectors are accesses of the elements that they move: what one
 * writes the other reads, whatever a compiler may conclude from the types of pointers.
 *
 * Each function is out of line and optimised as kernels are, so that the compiler sees nothing but
 * the order of the accesses.
 */
#include "core/vector_access.hpp"

#include <gtest/gtest.h>

namespace {

using core::Double2;
using core::Float4;

constexpr Float4 kNewFloats = {10, 20, 30, 40};
constexpr Double2 kNewDoubles = {10, 20};

// NOLINTBEGIN(bugprone-macro-parentheses): types stand in none.
// How much the element that a store overwrites grows. A compiler that takes the store for one of
// another type makes x - x of it.
#define QSVG_GROWTH(name, Real, Vector, store)                             \
    [[gnu::noinline]] Real name##_growth(Real* y, Vector v, int element) { \
        const Real before = y[element];                                    \
        store(y, v);                                                       \
        return y[element] - before;                                        \
    }

// What a load finds where an element was written just before, and is written again right behind.
#define QSVG_FOUND(name, Real, Vector, load)                                  \
    [[gnu::noinline]] Vector name##_found(Real* y, Real value, int element) { \
        y[element] = value;                                                   \
        const Vector found = load(y);                                         \
        y[element] = -value;                                                  \
        return found;                                                         \
    }

// NOLINTEND(bugprone-macro-parentheses)

Float4 load_high_above_zeros(const float* p) {
    return core::load_high(Float4{}, p);
}

QSVG_GROWTH(store_low, float, Float4, core::store_low)
QSVG_GROWTH(store_high, float, Float4, core::store_high)
QSVG_GROWTH(aligned_floats, float, Float4, core::Aligned::store)
QSVG_GROWTH(unaligned_floats, float, Float4, core::Unaligned::store)
QSVG_GROWTH(aligned_doubles, double, Double2, core::Aligned::store)
QSVG_GROWTH(unaligned_doubles, double, Double2, core::Unaligned::store)
QSVG_GROWTH(halves, double, Double2, core::Halves::store)
QSVG_FOUND(load_low, float, Float4, core::load_low)
QSVG_FOUND(load_high, float, Float4, load_high_above_zeros)
QSVG_FOUND(aligned_floats, float, Float4, core::Aligned::load)
QSVG_FOUND(unaligned_floats, float, Float4, core::Unaligned::load)
QSVG_FOUND(aligned_doubles, double, Double2, core::Aligned::load)
QSVG_FOUND(unaligned_doubles, double, Double2, core::Unaligned::load)
QSVG_FOUND(halves, double, Double2, core::Halves::load)

/** Elements 1 to 4 on a boundary of 16 bytes. */
template <class Real>
struct alignas(16) Elements {
    Real of[4] = {1, 2, 3, 4};
};

template <class Real, class Vector>
void expect_growth(const char* access, Real (*growth)(Real*, Vector, int), Vector v, int elements,
                   int first_lane) {
    for (int element = 0; element < elements; ++element) {
        Elements<Real> y;
        const Real before = y.of[element];
        EXPECT_EQ(growth(y.of, v, element), v[first_lane + element] - before)
            << access << ", element " << element;
    }
}

template <class Real, class Vector>
void expect_found(const char* access, Vector (*found)(Real*, Real, int), int elements,
                  int first_lane) {
    for (int element = 0; element < elements; ++element) {
        Elements<Real> y;
        EXPECT_EQ(found(y.of, Real(77), element)[first_lane + element], Real(77))
            << access << ", element " << element;
        EXPECT_EQ(y.of[element], Real(-77)) << access << ", element " << element;
    }
}

TEST(VectorAccess, WhatAStoreWritesIsReadByTheElement) {
    expect_growth("store_low", store_low_growth, kNewFloats, 2, 0);
    expect_growth("store_high", store_high_growth, kNewFloats, 2, 2);
    expect_growth("Aligned", aligned_floats_growth, kNewFloats, 4, 0);
    expect_growth("Unaligned", unaligned_floats_growth, kNewFloats, 4, 0);
    expect_growth("Aligned", aligned_doubles_growth, kNewDoubles, 2, 0);
    expect_growth("Unaligned", unaligned_doubles_growth, kNewDoubles, 2, 0);
    expect_growth("Halves", halves_growth, kNewDoubles, 2, 0);
}

TEST(VectorAccess, WhatAnElementWasIsFoundByALoad) {
    expect_found("load_low", load_low_found, 2, 0);
    expect_found("load_high", load_high_found, 2, 2);
    expect_found("Aligned", aligned_floats_found, 4, 0);
    expect_found("Unaligned", unaligned_floats_found, 4, 0);
    expect_found("Aligned", aligned_doubles_found, 2, 0);
    expect_found("Unaligned", unaligned_doubles_found, 2, 0);
    expect_found("Halves", halves_found, 2, 0);
}

TEST(VectorAccess, ALoadOfTheLowHalfLeavesZerosAbove) {
    const Elements<float> x;
    const Float4 v = core::load_low(x.of);
    EXPECT_EQ(v[2], 0.0F);
    EXPECT_EQ(v[3], 0.0F);
}

TEST(VectorAccess, AHalfTouchesNoElementOfTheOther) {
    Elements<float> y;
    core::store_low(y.of, kNewFloats);
    EXPECT_EQ(y.of[2], 3.0F);
    EXPECT_EQ(y.of[3], 4.0F);
    core::store_high(y.of + 2, kNewFloats);
    EXPECT_EQ(y.of[0], 10.0F);
    EXPECT_EQ(y.of[1], 20.0F);
    EXPECT_EQ(y.of[2], 30.0F);
    EXPECT_EQ(y.of[3], 40.0F);
}

}  // namespace
