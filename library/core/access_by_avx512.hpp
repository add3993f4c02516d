#pragma once

/** @file @brief Vectors of 64 bytes, by the intrinsics of AVX-512. */

#include <immintrin.h>

#include <cstddef>

namespace core {

using Float16 = float __attribute__((vector_size(64)));
using Double8 = double __attribute__((vector_size(64)));

/** Whole vectors of 64 bytes anywhere: where they stand on a boundary, that costs nothing. */
struct Widest {
    static Float16 load(const float* p) { return _mm512_loadu_ps(p); }
    static void store(float* p, Float16 v) { _mm512_storeu_ps(p, v); }
    static Double8 load(const double* p) { return _mm512_loadu_pd(p); }
    static void store(double* p, Double8 v) { _mm512_storeu_pd(p, v); }

    /** Each half from an address of its own. */
    static Float16 load_halves(const float* low, const float* high) {
        return _mm512_insertf32x8(_mm512_castps256_ps512(_mm256_loadu_ps(low)),
                                  _mm256_loadu_ps(high), 1);
    }
    static Double8 load_halves(const double* low, const double* high) {
        return _mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_loadu_pd(low)),
                                  _mm256_loadu_pd(high), 1);
    }

    /** 16 bytes on a boundary for each quarter, `apart` elements from one another. */
    static Float16 load_quarters(const float* p, std::ptrdiff_t apart) {
        Float16 v = _mm512_castps128_ps512(_mm_load_ps(p));
        v = _mm512_insertf32x4(v, _mm_load_ps(p + apart), 1);
        v = _mm512_insertf32x4(v, _mm_load_ps(p + 2 * apart), 2);
        return _mm512_insertf32x4(v, _mm_load_ps(p + 3 * apart), 3);
    }
    static Double8 load_quarters(const double* p, std::ptrdiff_t apart) {
        Double8 v = _mm512_castpd128_pd512(_mm_load_pd(p));
        v = _mm512_insertf64x2(v, _mm_load_pd(p + apart), 1);
        v = _mm512_insertf64x2(v, _mm_load_pd(p + 2 * apart), 2);
        return _mm512_insertf64x2(v, _mm_load_pd(p + 3 * apart), 3);
    }

    /** 16 bytes on a boundary, in each quarter. */
    static Float16 load_four_times(const float* p) {
        return _mm512_broadcast_f32x4(_mm_load_ps(p));
    }
    static Double8 load_four_times(const double* p) {
        return _mm512_broadcast_f64x2(_mm_load_pd(p));
    }
};

}  // namespace core
