#pragma once

/**
 * @file
 * @brief The two stages an element at a time: which address each value of each group comes from and
 * goes to, with the bit interpreter in place of compiled bodies.
 *
 * Addresses and loops are written down from the formulas, with no batches of groups and no vectors
 * in memory. Of the plan only the tables are read.
 */

#include <vector>

#include "support/dct4.hpp"

namespace qsvgen_test {

/** One read and one written element more than the length: a power of two and one needs it. */
using Memory = std::vector<double>;

/** Analyses of 2n values with g[j] = source[mirror(j; stride, offset)], for a group of columns: Re
 * Z[a] goes to destination[column + 2 spacing a], Im Z[a] `spacing` elements behind. */
struct InterpretedAnalysis {
    int points;
    int stride;
    int offset;
    int mirror;
    int column;
    int spacing;
};

void interpret_analysis(const InterpretedAnalysis& where, const Memory& source,
                        Memory& destination);

/** Step two of a split by 2^rule: DFTs of `blocks` blocks of rows of the scratch vector. */
struct InterpretedDfts {
    int rule;
    int blocks;
    int spacing;
    int column;
};

void interpret_dfts(const InterpretedDfts& where, const Real* table, const Memory& scratch,
                    Memory& destination);

/** Rotations and syntheses of 2^rule points for `groups` groups of rows, to destination[mirror(j;
 * stride, b)]; forward elements are written first. */
struct InterpretedSynthesis {
    int rule;
    int groups;
    int stride;
    int mirror;
};

void interpret_syntheses(const InterpretedSynthesis& where, const Real* table, const Memory& source,
                         Memory& destination);

/** Destination of the whole transform, whose elements were `unwritten` before. */
Memory interpreted_transform(PlanBuffer& plan, const Memory& source, double unwritten);

inline Memory as_memory(const Signal& x) {
    return {x.begin(), x.end()};
}

inline Signal as_signal(const Memory& y) {
    Signal signal;
    for (double value : y) signal.push_back(static_cast<Real>(value));
    return signal;
}

}  // namespace qsvgen_test
