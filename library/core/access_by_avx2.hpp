#pragma once

/** @file @brief Vectors of 32 bytes, by the intrinsics of AVX2. */

#include <immintrin.h>

namespace core {

using Float8 = float __attribute__((vector_size(32)));
using Double4 = double __attribute__((vector_size(32)));

/** Whole vectors of 32 bytes anywhere: where they stand on a boundary, that costs nothing. */
struct Wide {
    static Float8 load(const float* p) { return _mm256_loadu_ps(p); }
    static void store(float* p, Float8 v) { _mm256_storeu_ps(p, v); }
    static Double4 load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, Double4 v) { _mm256_storeu_pd(p, v); }

    /** Each half from an address of its own. */
    static Float8 load_halves(const float* low, const float* high) {
        return _mm256_loadu2_m128(high, low);
    }
    static Double4 load_halves(const double* low, const double* high) {
        return _mm256_loadu2_m128d(high, low);
    }

    /** 16 bytes on a boundary, in both halves. */
    static Float8 load_twice(const float* p) {
        return _mm256_broadcast_ps(reinterpret_cast<const __m128*>(p));
    }
    static Double4 load_twice(const double* p) {
        return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(p));
    }
};

}  // namespace core
