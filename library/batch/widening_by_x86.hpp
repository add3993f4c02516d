#pragma once

/**
 * @file
 * @brief Values of binary64 beside Floats, which take two vectors, low and high. They are converted
 * straight from memory and into it where that is possible, which spares the shuffles.
 */

#if QSVG_VECTOR_BYTES == 16
#include <emmintrin.h>
#else
#include <immintrin.h>
#endif

#include "batch/lanes.hpp"

namespace batch {

#if QSVG_VECTOR_BYTES == 16
[[gnu::always_inline]] inline Doubles load_widened(const float* p) {
    return _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
}
[[gnu::always_inline]] inline void store_rounded(float* p, Doubles v) {
    _mm_storel_pi(reinterpret_cast<__m64*>(p), _mm_cvtpd_ps(v));
}
[[gnu::always_inline]] inline Doubles widen_low(Floats v) {
    return _mm_cvtps_pd(v);
}
[[gnu::always_inline]] inline Doubles widen_high(Floats v) {
    return _mm_cvtps_pd(_mm_movehl_ps(v, v));
}
[[gnu::always_inline]] inline Floats round(Doubles low, Doubles high) {
    return _mm_movelh_ps(_mm_cvtpd_ps(low), _mm_cvtpd_ps(high));
}
#elif QSVG_VECTOR_BYTES == 32
[[gnu::always_inline]] inline Doubles load_widened(const float* p) {
    return _mm256_cvtps_pd(_mm_loadu_ps(p));
}
[[gnu::always_inline]] inline void store_rounded(float* p, Doubles v) {
    _mm_storeu_ps(p, _mm256_cvtpd_ps(v));
}
[[gnu::always_inline]] inline Doubles widen_low(Floats v) {
    return _mm256_cvtps_pd(_mm256_castps256_ps128(v));
}
[[gnu::always_inline]] inline Doubles widen_high(Floats v) {
    return _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1));
}
[[gnu::always_inline]] inline Floats round(Doubles low, Doubles high) {
    return _mm256_set_m128(_mm256_cvtpd_ps(high), _mm256_cvtpd_ps(low));
}
#elif QSVG_VECTOR_BYTES == 64
[[gnu::always_inline]] inline Doubles load_widened(const float* p) {
    return _mm512_cvtps_pd(_mm256_loadu_ps(p));
}
[[gnu::always_inline]] inline void store_rounded(float* p, Doubles v) {
    _mm256_storeu_ps(p, _mm512_cvtpd_ps(v));
}
[[gnu::always_inline]] inline Doubles widen_low(Floats v) {
    return _mm512_cvtps_pd(_mm512_castps512_ps256(v));
}
[[gnu::always_inline]] inline Doubles widen_high(Floats v) {
    return _mm512_cvtps_pd(_mm512_extractf32x8_ps(v, 1));
}
[[gnu::always_inline]] inline Floats round(Doubles low, Doubles high) {
    return _mm512_insertf32x8(_mm512_castps256_ps512(_mm512_cvtpd_ps(low)), _mm512_cvtpd_ps(high),
                              1);
}
#endif

}  // namespace batch
