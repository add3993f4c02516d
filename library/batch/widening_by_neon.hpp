#pragma once

/**
 * @file
 * @brief Values of binary64 beside Floats, which take two vectors, low and high. By intrinsics,
 * since of vectors that are converted by the language GCC 12 widens one lane after the other.
 */

#include <arm_neon.h>

#include "batch/lanes.hpp"

namespace batch {

static_assert(kBytes == sizeof(float32x4_t));

[[gnu::always_inline]] inline Doubles load_widened(const float* p) {
    return vcvt_f64_f32(vld1_f32(p));
}
[[gnu::always_inline]] inline void store_rounded(float* p, Doubles v) {
    vst1_f32(p, vcvt_f32_f64(v));
}
[[gnu::always_inline]] inline Doubles widen_low(Floats v) {
    return vcvt_f64_f32(vget_low_f32(v));
}
[[gnu::always_inline]] inline Doubles widen_high(Floats v) {
    return vcvt_high_f64_f32(v);
}
[[gnu::always_inline]] inline Floats round(Doubles low, Doubles high) {
    return vcvt_high_f32_f64(vcvt_f32_f64(low), high);
}

}  // namespace batch
