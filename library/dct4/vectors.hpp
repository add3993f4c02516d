#pragma once

/**
 * @file
 * @brief The vectors that a source of the DCT-IV is compiled for: of QSVG_STAGE_BYTES 16, or at
 * levels that have them of 32 or 64.
 *
 * What differs by them stands in a namespace of its own, dct4::QSVG_VECTORS, or carries it in its
 * name: COMPUTE(env5) is owngDCT4_32fw7_env5_compute, owngDCT4_32fw7_env5_compute_wide or
 * owngDCT4_32fw7_env5_compute_widest.
 */

#include <utility>

#include "dct4/element.hpp"

#ifndef QSVG_STAGE_BYTES
#define QSVG_STAGE_BYTES 16
#endif

#if QSVG_STAGE_BYTES == 16
#define QSVG_NAME_BY_WIDTH(name) name
#elif QSVG_STAGE_BYTES == 32
#define QSVG_NAME_BY_WIDTH(name) name##_wide
#elif QSVG_STAGE_BYTES == 64
#define QSVG_NAME_BY_WIDTH(name) name##_widest
#else
#error "QSVG_STAGE_BYTES is 16, 32 or 64"
#endif
/** Of a name that is a macro itself. */
#define QSVG_BY_WIDTH(name) QSVG_NAME_BY_WIDTH(name)
#define QSVG_VECTORS QSVG_BY_WIDTH(QSVG_ELEMENT)
#define COMPUTE(name) QSVG_BY_WIDTH(DCT4(name##_compute))

namespace dct4::QSVG_VECTORS {

#if QSVG_STAGE_BYTES > 16
using namespace dct4::QSVG_ELEMENT;
#endif

#if QSVG_STAGE_BYTES == 16
using OnBoundary = core::Aligned;
using Anywhere = core::Unaligned;
#elif QSVG_STAGE_BYTES == 32
using OnBoundary = core::Wide;
using Anywhere = core::Wide;
#else
using OnBoundary = core::Widest;
using Anywhere = core::Widest;
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
#if QSVG_STAGE_BYTES == 16
    return load(slot);
#elif QSVG_STAGE_BYTES == 32
    return core::Wide::load_twice(slot);
#else
    return core::Widest::load_four_times(slot);
#endif
}
/** As many elements as plans have lanes, for the first group, and for each other one those `apart`
 * behind. */
inline Vector load_groups(const Real* first, [[maybe_unused]] std::int32_t apart) {
#if QSVG_STAGE_BYTES == 16
    return load(first);
#elif QSVG_STAGE_BYTES == 32
    return core::Wide::load_halves(first, first + apart);
#else
    return core::Widest::load_quarters(first, apart);
#endif
}

using EachLane = std::make_integer_sequence<int, kLanes>;

template <int... kLane>
inline Vector reversed(Vector v, std::integer_sequence<int, kLane...>) {
    return __builtin_shufflevector(v, v, (kLanes - 1 - kLane)...);
}
inline Vector reversed(Vector v) {
    return reversed(v, EachLane());
}

#if QSVG_STAGE_BYTES == 16

template <int... kLane>
inline Vector in_all_lanes(Real value, std::integer_sequence<int, kLane...>) {
    return Vector{((void)kLane, value)...};
}
/** The same value in all lanes. */
inline Vector in_all_lanes(Real value) {
    return in_all_lanes(value, EachLane());
}

#else

inline Vector in_each_piece(const Real* constants) {
    return load_slot(constants);
}

/** Where lane `lane` of a shuffle of two vectors comes from that picks `from` of two pieces. */
constexpr int lane_from(int lane, int from) {
    const int piece = lane / kPlanLanes * kPlanLanes;
    return from < kPlanLanes ? piece + from : kLanes + piece + from - kPlanLanes;
}
template <int... kFrom, int... kLane>
inline Vector shuffled(Vector v, Vector w, std::integer_sequence<int, kLane...>) {
    constexpr int kOfPieces[] = {kFrom...};
    return __builtin_shufflevector(v, w, lane_from(kLane, kOfPieces[kLane % kPlanLanes])...);
}
/** The same lanes in each piece of 16 bytes: of the first operand's, then of the second's. */
template <int... kFrom>
inline Vector shuffled(Vector v, Vector w) {
    return shuffled<kFrom...>(v, w, EachLane());
}

#endif

}  // namespace dct4::QSVG_VECTORS
