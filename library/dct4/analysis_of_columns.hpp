#pragma once

/** @file @brief Analyses of 2^rule points by the straight-line bodies, for columns side by side. */

#include "dct4/batch.hpp"
#include "dct4/bodies_of_analysis.hpp"
#include "dct4/compute.hpp"

namespace dct4::QSVG_VECTORS {

/**
 * What is analysed and where the results go: with i = j modulo 2n, g[j] of the first column is
 * source[offset + stride i] in the first half and source[offset + mirror - stride i] in the second,
 * where the next column is one element lower. Re Z[a] goes to destination[column + 2 spacing a], Im
 * Z[a] to the element `spacing` behind it.
 */
struct AnalysisOfColumns {
    const Real* source;
    Real* destination;
    std::int32_t stride;
    std::int32_t spacing;
};

/** Index of the element that the second half begins with, of 2^rule points. */
template <int kRule>
[[gnu::always_inline]] inline std::int32_t first_backward(std::int32_t stride,
                                                          const ColumnGroups& where) {
    return where.offset + where.mirror - stride * ((1 << kRule) - 1);
}

/** What a batch of columns is analysed in. */
template <int kRule>
struct AnalysisBatches {
    Batch<1 << kRule> in;
    Batch<1 << kRule> out;
};

/** Of one to kBatch groups of columns, whatever the strides are. A function of its own, which keeps
 * a register for each array. */
template <int kRule>
[[gnu::noinline]] void analyse_batch(const AnalysisOfColumns& columns, const ColumnGroups& where,
                                     AnalysisBatches<kRule>& batches) {
    constexpr int kPlaces = 1 << kRule;
    constexpr int kHalf = kPlaces / 2;
    const int groups = where.groups;
    std::int32_t forward = where.offset;
    std::int32_t backward = first_backward<kRule>(columns.stride, where);
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < kHalf; ++i) {
        gather(columns.source + forward, batches.in.row(i), groups);
        gather_backward(columns.source + backward, batches.in.row(kHalf + i), groups);
        forward += columns.stride;
        backward += columns.stride;
    }
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups; ++i)
        Analysis<kRule>::run(batches.in.group(i), batches.out.group(i));
    std::int32_t to = where.column;
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < kPlaces; ++i) {
        move_row(batches.out.row(i), columns.destination + to, groups);
        to += columns.spacing;
    }
}

/** Straight between the arrays, whose rows stand kRow and kSpacing elements apart. */
template <int kRule, int kRow, int kSpacing>
struct DirectColumns {
    static constexpr int kHalf = (1 << kRule) / 2;

    const Real* forward;
    const Real* backward;  ///< the lowest element of the first vector that runs backward
    Real* row;

    Vector load(int place) const {
        if (place < kHalf) return load_unaligned(forward + place * kRow);
        return reversed(load_unaligned(backward + (place - kHalf) * kRow));
    }
    void store(int place, Vector v) const { QSVG_VECTORS::store(row + place * kSpacing, v); }
};

template <int kRule, int kRow, int kSpacing = kRow / 2>
[[gnu::always_inline]] inline void analyse_direct(const AnalysisOfColumns& columns,
                                                  const ColumnGroups& where) {
    DirectColumns<kRule, kRow, kSpacing> direct{
        columns.source + where.offset, columns.source + (first_backward<kRule>(kRow, where) + 1),
        columns.destination + where.column};
    QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < where.groups; ++i) {
        // First, so that behind the last group no pointer stands before its array.
        direct.backward -= kLanes;
        Analysis<kRule>::run(direct, direct);
        direct.forward += kLanes;
        direct.row += kLanes;
    }
}

}  // namespace dct4::QSVG_VECTORS
