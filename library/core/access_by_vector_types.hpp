#pragma once

/** @file @brief What vector_access.hpp tells of, by the vector types that GCC and Clang share. */

#include <cstdint>

#include "core/vector_access.hpp"

namespace core {

namespace detail {

typedef Float4 AlignedFloat4 __attribute__((may_alias));
typedef Double2 AlignedDouble2 __attribute__((may_alias));
typedef Float4 AnyFloat4 __attribute__((aligned(1), may_alias));
typedef Double2 AnyDouble2 __attribute__((aligned(1), may_alias));
using Signs4 = std::uint32_t __attribute__((vector_size(16)));
using Signs2 = std::uint64_t __attribute__((vector_size(16)));

}  // namespace detail

/** Whole vectors on 16-byte boundaries. */
struct Aligned {
    static Float4 load(const float* p) {
        return *reinterpret_cast<const detail::AlignedFloat4*>(p);
    }
    static void store(float* p, Float4 v) { *reinterpret_cast<detail::AlignedFloat4*>(p) = v; }
    static Double2 load(const double* p) {
        return *reinterpret_cast<const detail::AlignedDouble2*>(p);
    }
    static void store(double* p, Double2 v) { *reinterpret_cast<detail::AlignedDouble2*>(p) = v; }
};

/** Whole vectors anywhere. */
struct Unaligned {
    static Float4 load(const float* p) { return *reinterpret_cast<const detail::AnyFloat4*>(p); }
    static void store(float* p, Float4 v) { *reinterpret_cast<detail::AnyFloat4*>(p) = v; }
    static Double2 load(const double* p) { return *reinterpret_cast<const detail::AnyDouble2*>(p); }
    static void store(double* p, Double2 v) { *reinterpret_cast<detail::AnyDouble2*>(p) = v; }
};

/** Vectors of binary64 anywhere. */
using Halves = Unaligned;

inline Float4 load_low(const float* p) {
    return reinterpret_cast<Float4>(Double2{*reinterpret_cast<const TwoFloats*>(p), 0});
}

inline Float4 load_high(Float4 low, const float* p) {
    const auto halves = reinterpret_cast<Double2>(low);
    return reinterpret_cast<Float4>(Double2{halves[0], *reinterpret_cast<const TwoFloats*>(p)});
}

inline void store_low(float* p, Float4 v) {
    *reinterpret_cast<TwoFloats*>(p) = reinterpret_cast<Double2>(v)[0];
}

inline void store_high(float* p, Float4 v) {
    *reinterpret_cast<TwoFloats*>(p) = reinterpret_cast<Double2>(v)[1];
}

/** The first lane from memory, zeros above. */
inline Float4 load_scalar(const float* p) {
    return Float4{*p, 0, 0, 0};
}

/** `v` with the signs changed where `mask`, a vector of zeros, has one. */
inline Float4 flipped(Float4 v, Float4 mask) {
    return reinterpret_cast<Float4>(reinterpret_cast<detail::Signs4>(v) ^
                                    reinterpret_cast<detail::Signs4>(mask));
}
inline Double2 flipped(Double2 v, Double2 mask) {
    return reinterpret_cast<Double2>(reinterpret_cast<detail::Signs2>(v) ^
                                     reinterpret_cast<detail::Signs2>(mask));
}

/** Low half of `b`, high half of `a`. */
inline Float4 move_low(Float4 a, Float4 b) {
    return __builtin_shufflevector(a, b, 4, 5, 2, 3);
}

}  // namespace core
