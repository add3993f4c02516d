#pragma once

/**
 * @file
 * @brief Every exported complex DFT as a row of a table.
 */

#include <array>
#include <string>

#include "qsvgen.h"
#include "support/elements.hpp"

namespace qsvgen_test {

enum class Direction { Forward, Inverse };

inline constexpr int kShortestLength = 2;
inline constexpr int kLongestLength = 64;
inline constexpr int kLengthCount = kLongestLength - kShortestLength + 1;

inline constexpr std::array<std::int32_t, 4> kFlags = {qsvScaleFwdByN, qsvScaleInvByN,
                                                       qsvScaleBySqrtN, qsvScaleNone};

/** Values on both sides of every accepted flag, combinations of them, and the extremes. */
inline constexpr std::array<std::int32_t, 19> kBadFlags = {
    0, 3, 5, 6, 7, 9, 10, 11, 12, 15, 16, 0x101, 17, 32, -1, -2, -8, INT32_MIN, INT32_MAX};

template <class E>
struct Kernel {
    int length;
    Direction direction;
    const char* name;
    QsvStatus (*run)(const typename E::Complex* src, typename E::Complex* dst, std::int32_t flag);
};

template <class E>
struct Dispatcher {
    Direction direction;
    const char* name;
    QsvStatus (*run)(const typename E::Complex* src, typename E::Complex* dst, std::int32_t length,
                     std::int32_t flag);
};

template <class E>
using KernelTable = std::array<Kernel<E>, 2 * kLengthCount>;

/** Forward and inverse of each length in turn, shortest first. */
template <class E>
const KernelTable<E>& kernels();

template <class E>
const std::array<Dispatcher<E>, 2>& dispatchers();

#define QSVG_TEST_KERNELS(N, SUFFIX)                                                            \
    {N, Direction::Forward, "qsvgDFTFwd_CToC_" #N "_" #SUFFIX, qsvgDFTFwd_CToC_##N##_##SUFFIX}, \
        {N, Direction::Inverse, "qsvgDFTInv_CToC_" #N "_" #SUFFIX,                              \
         qsvgDFTInv_CToC_##N##_##SUFFIX},
#define QSVG_TEST_DISPATCHERS(SUFFIX)                                                 \
    {                                                                                 \
        {Direction::Forward, "qsvgDFTFwd_CToC_" #SUFFIX, qsvgDFTFwd_CToC_##SUFFIX}, { \
            Direction::Inverse, "qsvgDFTInv_CToC_" #SUFFIX, qsvgDFTInv_CToC_##SUFFIX  \
        }                                                                             \
    }

template <>
inline const KernelTable<Single>& kernels<Single>() {
#define QSVG_TEST_KERNELS_32FC(N) QSVG_TEST_KERNELS(N, 32fc)
    static const KernelTable<Single> table = {{QSVG_FOR_EACH_LENGTH(QSVG_TEST_KERNELS_32FC)}};
#undef QSVG_TEST_KERNELS_32FC
    return table;
}

template <>
inline const std::array<Dispatcher<Single>, 2>& dispatchers<Single>() {
    static const std::array<Dispatcher<Single>, 2> table = {QSVG_TEST_DISPATCHERS(32fc)};
    return table;
}

template <>
inline const KernelTable<Double>& kernels<Double>() {
#define QSVG_TEST_KERNELS_64FC(N) QSVG_TEST_KERNELS(N, 64fc)
    static const KernelTable<Double> table = {{QSVG_FOR_EACH_LENGTH(QSVG_TEST_KERNELS_64FC)}};
#undef QSVG_TEST_KERNELS_64FC
    return table;
}

template <>
inline const std::array<Dispatcher<Double>, 2>& dispatchers<Double>() {
    static const std::array<Dispatcher<Double>, 2> table = {QSVG_TEST_DISPATCHERS(64fc)};
    return table;
}

#undef QSVG_TEST_KERNELS
#undef QSVG_TEST_DISPATCHERS

template <class E>
const Kernel<E>& kernel_of(int length, Direction direction) {
    const int row = 2 * (length - kShortestLength) + (direction == Direction::Inverse ? 1 : 0);
    return kernels<E>()[static_cast<std::size_t>(row)];
}

/** "qsvgDFT..." has its code for unaligned arrays in "owngDFT..._unaligned". */
inline std::string twin_name(const std::string& kernel_name) {
    return "owng" + kernel_name.substr(4) + "_unaligned";
}

template <class E>
bool has_twin(const Kernel<E>& kernel) {
    return kernel.length >= E::kTwinFrom;
}

/** "qsvgDFTFwd_CToC_6_32fc (length 6, flag 4)": how a failure says where it happened. */
template <class E>
std::string describe(const Kernel<E>& kernel, std::int32_t flag) {
    return std::string(kernel.name) + " (length " + std::to_string(kernel.length) + ", flag " +
           std::to_string(flag) + ")";
}

constexpr bool is_prime(int n) {
    for (int d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return n >= 2;
}

constexpr bool is_power_of_two(int n) {
    return n > 0 && (n & (n - 1)) == 0;
}

}  // namespace qsvgen_test
