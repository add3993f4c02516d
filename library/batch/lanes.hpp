#pragma once

/**
 * @file
 * @brief Vectors in whose lanes as many transforms run side by side, as wide as the level has them.
 */

#include <utility>

namespace batch {

/** Of a vector. */
inline constexpr int kBytes = QSVG_VECTOR_BYTES;

template <class Real>
inline constexpr int kLanes = kBytes / static_cast<int>(sizeof(Real));

using Floats = float __attribute__((vector_size(kBytes)));
using Doubles = double __attribute__((vector_size(kBytes)));

template <class Real>
struct VectorOf;
template <>
struct VectorOf<float> {
    using Vector = Floats;
    /** On the boundary of an element, and of whatever type the memory is. */
    typedef Floats Anywhere __attribute__((aligned(4), may_alias));
};
template <>
struct VectorOf<double> {
    using Vector = Doubles;
    typedef Doubles Anywhere __attribute__((aligned(4), may_alias));
};
template <class Real>
using Vector = typename VectorOf<Real>::Vector;

template <class Real>
[[gnu::always_inline]] inline Vector<Real> load(const Real* p) {
    return *reinterpret_cast<const typename VectorOf<Real>::Anywhere*>(p);
}
template <class Real>
[[gnu::always_inline]] inline void store(Real* p, Vector<Real> v) {
    *reinterpret_cast<typename VectorOf<Real>::Anywhere*>(p) = v;
}

}  // namespace batch

#ifdef __SSE2__
#include "batch/widening_by_x86.hpp"
#else
#include "batch/widening_by_neon.hpp"
#endif
