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

/** Two vectors as one. */
inline Float8 joined(Float4 low, Float4 high) {
    return _mm256_set_m128(high, low);
}
inline Double4 joined(Double2 low, Double2 high) {
    return _mm256_set_m128d(high, low);
}

/** Two values in the lanes 0 and 1; those above hold what they will. */
inline Float4 joined(float first, float second) {
    return _mm_unpacklo_ps(_mm_set_ss(first), _mm_set_ss(second));
}
inline Double4 joined(double first, double second) {
    return _mm256_castpd128_pd256(Double2{first, second});
}

/** Four elements, by loads and blends alone: what moves lanes is the unit that sums. */
inline Float4 gathered(const float* a, const float* b, const float* c, const float* d) {
    // Blends of floats become insertions, which move lanes.
    const auto everywhere = [](const float* p) { return _mm_castps_si128(_mm_broadcast_ss(p)); };
    const __m128i low = _mm_blend_epi32(everywhere(a), everywhere(b), 0b0010);
    const __m128i high = _mm_blend_epi32(everywhere(c), everywhere(d), 0b1000);
    return _mm_castsi128_ps(_mm_blend_epi32(low, high, 0b1100));
}
inline Double4 gathered(const double* a, const double* b, const double* c, const double* d) {
    const __m256d low = _mm256_blend_pd(_mm256_broadcast_sd(a), _mm256_broadcast_sd(b), 0b0010);
    const __m256d high = _mm256_blend_pd(_mm256_broadcast_sd(c), _mm256_broadcast_sd(d), 0b1000);
    return _mm256_blend_pd(low, high, 0b1100);
}

inline void store_low(double* p, Double4 v) {
    _mm_storeu_pd(p, _mm256_castpd256_pd128(v));
}
inline void store_high(double* p, Double4 v) {
    _mm_storeu_pd(p, _mm256_extractf128_pd(v, 1));
}

/** Between the precisions: compilers take GNU vectors apart there. */
inline Double4 widened(Float4 v) {
    return _mm256_cvtps_pd(v);
}
inline Float4 rounded(Double4 v) {
    return _mm256_cvtpd_ps(v);
}

/** 16 bytes of a vector. */
template <int half_number>
Float4 half(Float8 v) {
    return _mm256_extractf128_ps(v, half_number);
}
template <int half_number>
Double2 half(Double4 v) {
    return _mm256_extractf128_pd(v, half_number);
}

/** `v` with the signs changed where `mask`, a vector of zeros, has one. */
inline Float8 flipped(Float8 v, Float8 mask) {
    return _mm256_xor_ps(v, mask);
}
inline Double4 flipped(Double4 v, Double4 mask) {
    return _mm256_xor_pd(v, mask);
}

}  // namespace core
