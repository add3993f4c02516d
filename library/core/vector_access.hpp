#pragma once

/**
 * @file
 * @brief Moves between memory and vectors. Nothing outside the named bytes is touched.
 */

namespace core {

using Float4 = float __attribute__((vector_size(16)));
using Double2 = double __attribute__((vector_size(16)));

// Half vectors have no alignment of their own in either path. Two floats travel as one double,
// which may stand for elements of any type: kernels read x[0] as a float and write y[0] as half a
// vector, and the two are one element where a transform runs in place.
using TwoFloats [[gnu::may_alias]] = double;

}  // namespace core

// Aligned, Unaligned, Halves, and what moves halves and changes signs.
#ifdef __SSE2__
#include "core/access_by_sse2.hpp"
#else
#include "core/access_by_vector_types.hpp"
#endif
#ifdef __AVX2__
#include "core/access_by_avx2.hpp"
#endif
#ifdef __AVX512F__
#include "core/access_by_avx512.hpp"
#endif

namespace core {

/** Reads one kind of memory and writes another. */
template <class From, class To>
struct Between {
    template <class Real>
    static auto load(const Real* p) {
        return From::load(p);
    }
    template <class Real>
    static auto load_halves(const Real* low, const Real* high) {
        return From::load_halves(low, high);
    }
    template <class Real, class Vector>
    static void store(Real* p, Vector v) {
        To::store(p, v);
    }
};

}  // namespace core
