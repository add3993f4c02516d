#pragma once

/**
 * @file
 * @brief What runs a plan: stage A (env5) from the source to the root's scratch vector, stage B
 * (env4) from there to the destination, and the recursion (env7, env8, env9) of long analyses.
 *
 * All give qsvStatusBadPlan for a rule that they have no body of, and have done nothing then.
 */

#include "dct4/records.hpp"

namespace dct4::QSVG_ELEMENT {

/** Where the first of some groups of columns stands. Groups of as many columns as a vector has
 * lanes follow one another. */
struct ColumnGroups {
    std::int32_t offset; /**< of the source (O) */
    /** What the index of a mirrored element and that of its image sum up to, less twice `offset`
     * (2N
     * - 1 - 2 O at the top). */
    std::int32_t mirror;
    std::int32_t column; /**< of the results (Q) */
    int groups;          /**< from 1 to kBatch */
    /** Between the real parts of the results and their imaginary parts; 0: as the node has it. */
    std::int32_t step = 0;
    /** Between adjacent rows of a scratch vector; 0: as the node has it. */
    std::int32_t pitch = 0;
};

extern "C" {

/** For each column c the analysis of g[j] = source[mirror(j; 2m, c)], where mirror(j; S, O) is S j
 * + O, and S |j| - 1 - O for negative j: m real and m imaginary parts in each row of
 * `destination`. */
QsvStatus COMPUTE(env5)(const env5* node, const Real* source, Real* destination);

/** For each row b the rotations and the synthesis, to destination[mirror(j; 2n, b)]. */
QsvStatus COMPUTE(env4)(const env4* node, const Real* source, Real* destination);

/** Analyses of a few groups of columns, split in two steps: */
QsvStatus COMPUTE(env7)(const env7* node, const Real* source, Real* destination,
                        const ColumnGroups& where);

/** the analyses of every factor-th value, to rows of the scratch vector of env7, */
QsvStatus COMPUTE(env9)(const env9* node, const Real* source, Real* scratch,
                        const ColumnGroups& where);

/** and the DFTs behind them, which read and write at `where.column`. */
QsvStatus COMPUTE(env8)(const env8* node, const Real* scratch, Real* destination,
                        const ColumnGroups& where);
}

}  // namespace dct4::QSVG_ELEMENT
