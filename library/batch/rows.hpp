#pragma once

/** @file @brief Transforms as single kernels run them, one in each piece of a vector. */

#include <cstddef>

#include "batch/pieces.hpp"
#include "qsvgen.h"

namespace batch {

/** `count` times as many transforms as a vector has pieces, each with its elements behind one
 * another. Those of the next one begin `step` numbers on. */
template <class Real>
struct Rows {
    const Real* source;
    Real* destination;
    std::ptrdiff_t source_step;
    std::ptrdiff_t destination_step;
    Real factor;
    std::ptrdiff_t count;
};

/** The same of columns, where elements fill pieces: equal elements of neighbouring transforms are a
 * vector. Element j of the first transforms is at source + from[j], that of their results at
 * destination + to[j]. */
template <class Real>
struct Columns {
    const Real* source;
    Real* destination;
    const std::ptrdiff_t* from;
    const std::ptrdiff_t* to;
    Real factor;
    std::ptrdiff_t count;
};

/** Vectors of so many pieces of 16 bytes, in each of which runs a transform. */
template <int kCount>
struct Pieces {};

/** A family's kernels in vectors of two pieces or of four; false where there is none of that size.
 * Null where there is none at all. */
template <class Real>
struct InPieces {
    bool (*rows)(int pieces, int size, const Rows<Real>& rows);
    bool (*columns)(int pieces, int size, const Columns<Real>& columns);
};

// NOLINTBEGIN(bugprone-macro-parentheses): names are pasted.
#define QSVG_IN_PIECES(name, Batch)                                        \
    bool name(int size, Pieces<2> pieces, const Batch& batch);             \
    bool name(int size, Pieces<4> pieces, const Batch& batch);             \
    inline bool name(int pieces, int size, const Batch& batch) {           \
        if constexpr (kPieces >= 4) {                                      \
            if (pieces == 4) return name(size, Pieces<4>(), batch);        \
        }                                                                  \
        if constexpr (kPieces >= 2) return name(size, Pieces<2>(), batch); \
        return false;                                                      \
    }
#define QSVG_FAMILY_IN_PIECES(family)                                                             \
    QSVG_IN_PIECES(family##_in_pieces_32f, Rows<Real32>)                                          \
    QSVG_IN_PIECES(family##_in_pieces_64f, Rows<Real64>)                                          \
    QSVG_IN_PIECES(family##_in_pieces_64f, Columns<Real64>)                                       \
    inline constexpr InPieces<Real32> family##_32f_in_pieces = {family##_in_pieces_32f, nullptr}; \
    inline constexpr InPieces<Real64> family##_64f_in_pieces = {family##_in_pieces_64f,           \
                                                                family##_in_pieces_64f};
// NOLINTEND(bugprone-macro-parentheses)

QSVG_FAMILY_IN_PIECES(complex_forward)
QSVG_FAMILY_IN_PIECES(complex_inverse)

#undef QSVG_FAMILY_IN_PIECES
#undef QSVG_IN_PIECES

}  // namespace batch
