#pragma once

/** @file @brief Vectors gathered from pieces of 16 bytes, and scattered in pieces. */

#if QSVG_VECTOR_BYTES > 16
#include <immintrin.h>
#endif

#include <cstddef>

#include "batch/shuffles.hpp"

namespace batch {

/** Of a vector. */
inline constexpr int kPieces = kBytes / kPieceBytes;

/** As it is in memory. */
using PieceFloats = float __attribute__((vector_size(kPieceBytes)));
typedef PieceFloats PieceAnywhere __attribute__((aligned(4), may_alias));

/** A vector of piece(0), piece(1), .. */
template <class Real, class Piece>
[[gnu::always_inline]] inline Vector<Real> joined(const Piece& piece) {
#if QSVG_VECTOR_BYTES == 16
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

/** piece(0, x), piece(1, x), .. for each piece x of a vector. */
template <class Real, class Piece>
[[gnu::always_inline]] inline void for_each_piece(Vector<Real> v, const Piece& piece) {
#if QSVG_VECTOR_BYTES == 16
    piece(0, reinterpret_cast<PieceFloats>(v));
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

/** A vector of pieces from as many places, `step` numbers apart. */
template <class Real>
[[gnu::always_inline]] inline Vector<Real> load_pieces(const Real* p, std::ptrdiff_t step) {
    return joined<Real>(
        [=](int i) { return *reinterpret_cast<const PieceAnywhere*>(p + i * step); });
}

template <class Real>
[[gnu::always_inline]] inline void store_pieces(Real* p, std::ptrdiff_t step, Vector<Real> v) {
    for_each_piece<Real>(
        v, [=](int i, PieceFloats x) { *reinterpret_cast<PieceAnywhere*>(p + i * step) = x; });
}

#if QSVG_VECTOR_BYTES > 16
/** Of pairs of pieces, `step` numbers apart, the first ones in `a`, the others in `b`. */
template <class Real>
[[gnu::always_inline]] inline void load_pairs_of_pieces(const Real* p, std::ptrdiff_t step,
                                                        Vector<Real>& a, Vector<Real>& b) {
    const auto pair = [=](int i) {
        return _mm256_loadu_ps(reinterpret_cast<const float*>(p + i * step));
    };
#if QSVG_VECTOR_BYTES == 32
    const __m256 x = pair(0);
    const __m256 y = pair(1);
    a = reinterpret_cast<Vector<Real>>(_mm256_permute2f128_ps(x, y, 0x20));
    b = reinterpret_cast<Vector<Real>>(_mm256_permute2f128_ps(x, y, 0x31));
#else
    const auto two_pairs = [=](int i) {
        return _mm512_castps_pd(
            _mm512_insertf32x8(_mm512_castps256_ps512(pair(i)), pair(i + 1), 1));
    };
    const __m512d x = two_pairs(0);
    const __m512d y = two_pairs(2);
    a = reinterpret_cast<Vector<Real>>(
        _mm512_permutex2var_pd(x, _mm512_setr_epi64(0, 1, 4, 5, 8, 9, 12, 13), y));
    b = reinterpret_cast<Vector<Real>>(
        _mm512_permutex2var_pd(x, _mm512_setr_epi64(2, 3, 6, 7, 10, 11, 14, 15), y));
#endif
}

/** Pieces of a and b in turns, two of which make a store: it takes as long as that of one. */
template <class Real>
[[gnu::always_inline]] inline void store_pairs_of_pieces(Real* p, std::ptrdiff_t step,
                                                         Vector<Real> a, Vector<Real> b) {
    const auto pair = [=](int i, __m256 x) {
        _mm256_storeu_ps(reinterpret_cast<float*>(p + i * step), x);
    };
#if QSVG_VECTOR_BYTES == 32
    const auto x = reinterpret_cast<__m256>(a);
    const auto y = reinterpret_cast<__m256>(b);
    pair(0, _mm256_permute2f128_ps(x, y, 0x20));
    pair(1, _mm256_permute2f128_ps(x, y, 0x31));
#else
    const auto x = reinterpret_cast<__m512d>(a);
    const auto y = reinterpret_cast<__m512d>(b);
    const auto halves = [=](int i, __m512d v) {
        pair(i, _mm256_castpd_ps(_mm512_castpd512_pd256(v)));
        pair(i + 1, _mm256_castpd_ps(_mm512_extractf64x4_pd(v, 1)));
    };
    halves(0, _mm512_permutex2var_pd(x, _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11), y));
    halves(2, _mm512_permutex2var_pd(x, _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15), y));
#endif
}
#endif

}  // namespace batch
