#pragma once

/**
 * @file
 * @brief The vectors that a source of the DCT-IV is compiled for: of 16 bytes, or with QSVG_IS_WIDE
 * of 32.
 *
 * What differs by them stands in a namespace of its own, dct4::QSVG_VECTORS, or carries it in its
 * name: COMPUTE(env5) is owngDCT4_32fw7_env5_compute or owngDCT4_32fw7_env5_compute_wide.
 */

#include "dct4/element.hpp"

#ifdef QSVG_IS_WIDE
#if QSVG_REAL_BITS == 32
#define QSVG_VECTORS real32_wide
#else
#define QSVG_VECTORS real64_wide
#endif
#define COMPUTE(name) DCT4(name##_compute_wide)
namespace dct4::QSVG_VECTORS {
using namespace dct4::QSVG_ELEMENT;
}
#else
#define QSVG_VECTORS QSVG_ELEMENT
#define COMPUTE(name) DCT4(name##_compute)
#endif

namespace dct4::QSVG_VECTORS {

#ifdef QSVG_IS_WIDE
using OnBoundary = core::Wide;
using Anywhere = core::Wide;
#else
using OnBoundary = core::Aligned;
using Anywhere = core::Unaligned;
#endif
/** What a load gives. */
using Vector = decltype(OnBoundary::load(static_cast<const Real*>(nullptr)));

/** Lanes of a vector: adjacent columns or blocks, each a transform of its own. */
constexpr std::int32_t kLanes = sizeof(Vector) / sizeof(Real);
/** Groups of as many columns or blocks as plans have lanes, in a vector. */
constexpr std::int32_t kGroups = kLanes / kPlanLanes;

inline Vector load(const Real* p) {
    return OnBoundary::load(p);
}
inline void store(Real* p, Vector v) {
    OnBoundary::store(p, v);
}
inline Vector load_unaligned(const Real* p) {
    return Anywhere::load(p);
}
inline void store_unaligned(Real* p, Vector v) {
    Anywhere::store(p, v);
}

/** A slot of a table, which holds one value for all columns. */
inline Vector load_slot(const Real* slot) {
#ifdef QSVG_IS_WIDE
    return core::Wide::load_twice(slot);
#else
    return load(slot);
#endif
}
/** As many elements as plans have lanes, for the first group, and for a second those `apart`
 * behind. */
inline Vector load_groups(const Real* first, [[maybe_unused]] std::int32_t apart) {
#ifdef QSVG_IS_WIDE
    return core::Wide::load_halves(first, first + apart);
#else
    return load(first);
#endif
}

#ifdef QSVG_IS_WIDE

inline Vector in_each_piece(const Real* constants) {
    return core::Wide::load_twice(constants);
}

#if QSVG_REAL_BITS == 32
inline Vector reversed(Vector v) {
    return __builtin_shufflevector(v, v, 7, 6, 5, 4, 3, 2, 1, 0);
}
/** The same lanes in both pieces of 16 bytes: 0 to 3 of the first operand's, 4 to 7 of the
 * second's. */
template <int a, int b, int c, int d>
inline Vector shuffled(Vector v, Vector w) {
    constexpr auto low = [](int lane) { return lane < 4 ? lane : lane + 4; };
    return __builtin_shufflevector(v, w, low(a), low(b), low(c), low(d), low(a) + 4, low(b) + 4,
                                   low(c) + 4, low(d) + 4);
}
#else
inline Vector reversed(Vector v) {
    return __builtin_shufflevector(v, v, 3, 2, 1, 0);
}
/** The same lanes in both pieces of 16 bytes: 0 and 1 of the first operand's, 2 and 3 of the
 * second's. */
template <int a, int b>
inline Vector shuffled(Vector v, Vector w) {
    constexpr auto low = [](int lane) { return lane < 2 ? lane : lane + 2; };
    return __builtin_shufflevector(v, w, low(a), low(b), low(a) + 2, low(b) + 2);
}
#endif

#else

#if QSVG_REAL_BITS == 32
/** The same value in all lanes. */
inline Vector in_all_lanes(Real value) {
    return Vector{value, value, value, value};
}
inline Vector reversed(Vector v) {
    return __builtin_shufflevector(v, v, 3, 2, 1, 0);
}
#else
/** The same value in all lanes. */
inline Vector in_all_lanes(Real value) {
    return Vector{value, value};
}
inline Vector reversed(Vector v) {
    return __builtin_shufflevector(v, v, 1, 0);
}
#endif

#endif

}  // namespace dct4::QSVG_VECTORS
