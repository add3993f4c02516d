#pragma once

/** @file @brief What tests know of one kernel or one transform of a run-time length. */

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string>

#include "qsvgen.h"
#include "support/elements.hpp"
#include "support/header_lengths.hpp"

namespace qsvgen_test {

/** A transform that is its own inverse goes both ways. */
enum class Direction { Forward, Inverse, Both };

/** Of the spectrum; natural where every element of it is there. */
enum class Layout { Natural, Ccs, Pack, Perm };

inline constexpr std::array<Layout, 3> kRealLayouts = {Layout::Ccs, Layout::Pack, Layout::Perm};

inline constexpr int kShortestLength =
    *std::min_element(std::begin(kHeaderLengths), std::end(kHeaderLengths));
inline constexpr int kLongestLength =
    *std::max_element(std::begin(kHeaderLengths), std::end(kHeaderLengths));
inline constexpr int kLengthCount = static_cast<int>(std::size(kHeaderLengths));

inline constexpr std::array<std::int32_t, 4> kFlags = {qsvScaleFwdByN, qsvScaleInvByN,
                                                       qsvScaleBySqrtN, qsvScaleNone};

/** Values on both sides of every accepted flag, combinations of them, and the extremes. */
inline constexpr std::array<std::int32_t, 19> kBadFlags = {
    0, 3, 5, 6, 7, 9, 10, 11, 12, 15, 16, 0x101, 17, 32, -1, -2, -8, INT32_MIN, INT32_MAX};

/** Elements of the spectrum of a signal of `length` elements. */
constexpr std::size_t spectrum_size(Layout layout, int length) {
    return static_cast<std::size_t>(layout == Layout::Ccs ? length / 2 * 2 + 2 : length);
}

/** Enough for source and destination of every kernel. */
inline constexpr std::size_t kLongestArray = spectrum_size(Layout::Ccs, kLongestLength);

template <class E>
struct Kernel {
    int length;
    Direction direction;
    Layout layout;
    const char* name;
    QsvStatus (*run)(const typename E::Element* src, typename E::Element* dst, std::int32_t flag);

    std::size_t source_size() const {
        return spectrum_size(direction == Direction::Inverse ? layout : Layout::Natural, length);
    }
    std::size_t destination_size() const {
        return spectrum_size(direction == Direction::Forward ? layout : Layout::Natural, length);
    }
};

template <class E>
struct Dispatcher {
    Direction direction;
    Layout layout;
    const char* name;
    QsvStatus (*run)(const typename E::Element* src, typename E::Element* dst, std::int32_t length,
                     std::int32_t flag);
};

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
