#pragma once

/** @file @brief What vector_access.hpp tells of, by the intrinsics of SSE2. */

#include <emmintrin.h>

#include "core/vector_access.hpp"

namespace core {

/** Whole vectors on 16-byte boundaries. */
struct Aligned {
    static __m128 load(const float* p) { return _mm_load_ps(p); }
    static void store(float* p, __m128 v) { _mm_store_ps(p, v); }
    static __m128d load(const double* p) { return _mm_load_pd(p); }
    static void store(double* p, __m128d v) { _mm_store_pd(p, v); }
};

/** Whole vectors anywhere. */
struct Unaligned {
    static __m128 load(const float* p) { return _mm_loadu_ps(p); }
    static void store(float* p, __m128 v) { _mm_storeu_ps(p, v); }
    static __m128d load(const double* p) { return _mm_loadu_pd(p); }
    static void store(double* p, __m128d v) { _mm_storeu_pd(p, v); }
};

/** Vectors of binary64 anywhere, written an element at a time; GCC and Clang join the two moves
 * into one of a whole vector. */
struct Halves {
    static __m128d load(const double* p) { return _mm_loadh_pd(_mm_load_sd(p), p + 1); }
    static void store(double* p, __m128d v) {
        _mm_storel_pd(p, v);
        _mm_storeh_pd(p + 1, v);
    }
};

inline __m128 load_low(const float* p) {
    return _mm_castpd_ps(_mm_set_sd(*reinterpret_cast<const TwoFloats*>(p)));
}

inline __m128 load_high(__m128 low, const float* p) {
    const __m128d halves = _mm_castps_pd(low);
    return _mm_castpd_ps(__m128d{halves[0], *reinterpret_cast<const TwoFloats*>(p)});
}

inline void store_low(float* p, __m128 v) {
    *reinterpret_cast<TwoFloats*>(p) = _mm_castps_pd(v)[0];
}

inline void store_high(float* p, __m128 v) {
    *reinterpret_cast<TwoFloats*>(p) = _mm_castps_pd(v)[1];
}

/** The first lane from memory, zeros above. */
inline Float4 load_scalar(const float* p) {
    return _mm_load_ss(p);
}

/** `v` with the signs changed where `mask`, a vector of zeros, has one. */
inline Float4 flipped(Float4 v, Float4 mask) {
    return _mm_xor_ps(v, mask);
}
inline Double2 flipped(Double2 v, Double2 mask) {
    return _mm_xor_pd(v, mask);
}

/** Low half of `b`, high half of `a`. */
inline __m128 move_low(__m128 a, __m128 b) {
    return _mm_castpd_ps(_mm_move_sd(_mm_castps_pd(a), _mm_castps_pd(b)));
}

}  // namespace core
