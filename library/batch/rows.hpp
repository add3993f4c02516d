#pragma once

/** @file @brief Transforms whose elements follow one another, as single kernels run them. */

#include <cstddef>

#include "batch/pieces.hpp"
#include "qsvgen.h"

namespace batch {

/** `count` times as many transforms as a vector has pieces. Those of the next one begin `step`
 * numbers on. */
template <class Real>
struct Rows {
    const Real* source;
    Real* destination;
    std::ptrdiff_t source_step;
    std::ptrdiff_t destination_step;
    Real factor;
    std::ptrdiff_t count;
};

/** Vectors of so many pieces of 16 bytes, in each of which runs a transform. */
template <int kCount>
struct Pieces {};

// A family's kernels in vectors of two pieces or of four; false where there is none of that size.
// NOLINTBEGIN(bugprone-macro-parentheses): names are pasted.
#define QSVG_IN_PIECES(name, Real)                                        \
    bool name(int size, Pieces<2> pieces, const Rows<Real>& rows);        \
    bool name(int size, Pieces<4> pieces, const Rows<Real>& rows);        \
    inline bool name(int pieces, int size, const Rows<Real>& rows) {      \
        if constexpr (kPieces >= 4) {                                     \
            if (pieces == 4) return name(size, Pieces<4>(), rows);        \
        }                                                                 \
        if constexpr (kPieces >= 2) return name(size, Pieces<2>(), rows); \
        return false;                                                     \
    }
// NOLINTEND(bugprone-macro-parentheses)

QSVG_IN_PIECES(complex_forward_in_pieces_32f, Real32)
QSVG_IN_PIECES(complex_forward_in_pieces_64f, Real64)
QSVG_IN_PIECES(complex_inverse_in_pieces_32f, Real32)
QSVG_IN_PIECES(complex_inverse_in_pieces_64f, Real64)

#undef QSVG_IN_PIECES

}  // namespace batch
