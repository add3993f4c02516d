#pragma once

/** @file @brief Vectors gathered from pieces of 16 bytes, and scattered in pieces. */

#include <immintrin.h>

#include <cstddef>

#include "batch/shuffles.hpp"

namespace batch {

/** A vector of pieces from as many places, `step` elements apart. */
template <class Real>
[[gnu::always_inline]] inline Vector<Real> load_pieces(const Real* p, std::ptrdiff_t step) {
    const auto piece = [=](int i) {
        return _mm_loadu_ps(reinterpret_cast<const float*>(p + i * step));
    };
#if QSVG_VECTOR_BYTES == 16
    (void)step;
    return reinterpret_cast<Vector<Real>>(piece(0));
#elif QSVG_VECTOR_BYTES == 32
    return reinterpret_cast<Vector<Real>>(
        _mm256_insertf128_ps(_mm256_castps128_ps256(piece(0)), piece(1), 1));
#else
    __m512 v = _mm512_castps128_ps512(piece(0));
    v = _mm512_insertf32x4(v, piece(1), 1);
    v = _mm512_insertf32x4(v, piece(2), 2);
    return reinterpret_cast<Vector<Real>>(_mm512_insertf32x4(v, piece(3), 3));
#endif
}

template <class Real>
[[gnu::always_inline]] inline void store_pieces(Real* p, std::ptrdiff_t step, Vector<Real> v) {
    const auto piece = [=](int i, __m128 x) {
        _mm_storeu_ps(reinterpret_cast<float*>(p + i * step), x);
    };
#if QSVG_VECTOR_BYTES == 16
    (void)step;
    piece(0, reinterpret_cast<__m128>(v));
#elif QSVG_VECTOR_BYTES == 32
    const auto x = reinterpret_cast<__m256>(v);
    piece(0, _mm256_castps256_ps128(x));
    piece(1, _mm256_extractf128_ps(x, 1));
#else
    const auto x = reinterpret_cast<__m512>(v);
    piece(0, _mm512_castps512_ps128(x));
    piece(1, _mm512_extractf32x4_ps(x, 1));
    piece(2, _mm512_extractf32x4_ps(x, 2));
    piece(3, _mm512_extractf32x4_ps(x, 3));
#endif
}

}  // namespace batch
