#pragma once

/** @file @brief Analyses of 2^rule points by the straight-line bodies, for columns side by side. */

#include "dct4/batch.hpp"
#include "dct4/bodies_of_analysis.hpp"

namespace dct4::QSVG_ELEMENT {

/**
 * What is analysed and where the results go, for the first of some columns: with i = j modulo 2n,
 * g[j] is source[stride i] in the first half and source[mirror - stride i] in the second, where the
 * next column is one element lower. Re Z[a] goes to destination[2 spacing a], Im Z[a] to the
 * element `spacing` behind it.
 */
struct AnalysisOfColumns {
    const Real* source;
    std::int32_t mirror;
    std::int32_t stride;
    Real* destination;
    std::int32_t spacing;
};

/** Of one to kBatch groups of columns, whatever the strides are. */
template <int kRule>
[[gnu::always_inline]] inline void analyse_batch(const AnalysisOfColumns& columns, int groups) {
    constexpr int kPlaces = 1 << kRule;
    constexpr int kHalf = kPlaces / 2;
    Batch<kPlaces> in;
    Batch<kPlaces> out;
    const Real* forward = columns.source;
    const Real* backward = columns.source + columns.mirror - columns.stride * (kPlaces - 1);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < kHalf; ++i) {
        gather(forward, in.row(i), groups);
        gather_backward(backward, in.row(kHalf + i), groups);
        forward += columns.stride;
        backward += columns.stride;
    }
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; ++i)
        Analysis<kRule>::run(in.group(i), out.group(i));
    Real* to = columns.destination;
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < kPlaces; ++i) {
        move_row(out.row(i), to, groups);
        to += columns.spacing;
    }
}

/** Straight between the arrays: rows of kRow elements, half of which are real parts. */
template <int kRule, int kRow>
struct DirectColumns {
    static constexpr int kHalf = (1 << kRule) / 2;

    const Real* forward;
    const Real* backward;  ///< the lowest element of the first vector that runs backward
    Real* row;

    Vector load(int place) const {
        if (place < kHalf) return load_unaligned(forward + place * kRow);
        return reversed(load_unaligned(backward + (place - kHalf) * kRow));
    }
    void store(int place, Vector v) const { QSVG_ELEMENT::store(row + place * (kRow / 2), v); }
};

template <int kRule, int kRow>
[[gnu::always_inline]] inline void analyse_direct(const AnalysisOfColumns& columns, int groups) {
    DirectColumns<kRule, kRow> direct{
        columns.source, columns.source + columns.mirror - kRow * ((1 << kRule) - 1) - (kLanes - 1),
        columns.destination};
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; ++i) {
        Analysis<kRule>::run(direct, direct);
        direct.forward += kLanes;
        direct.backward -= kLanes;
        direct.row += kLanes;
    }
}

}  // namespace dct4::QSVG_ELEMENT
