#pragma once

/**
 * @file
 * @brief Checks and scale factors that every fixed-size kernel begins with.
 */

#include <cstdint>

#include "qsvgen.h"

namespace core {

/** Both arrays on a 16-byte boundary; null counts as aligned, so that the null test answers. */
inline bool aligned(const void* source, const void* destination) {
    const std::uintptr_t bits = reinterpret_cast<std::uintptr_t>(source) |
                                reinterpret_cast<std::uintptr_t>(destination);
    return (bits & 15U) == 0;
}

/** Scale factor for each flag value from 0 to 8; entries of other values are unused. */
template <class Real>
using ScaleTable = Real[9];

inline bool is_scale_flag(std::int32_t flag) {
    constexpr std::uint32_t kFlags = 1U << qsvScaleFwdByN | 1U << qsvScaleInvByN |
                                     1U << qsvScaleBySqrtN | 1U << qsvScaleNone;
    const auto value = static_cast<std::uint32_t>(flag);
    return value <= 8 && (kFlags >> value & 1U) != 0;
}

/** Status of a call's arguments, in the order that callers may rely on. */
inline QsvStatus check(const void* source, const void* destination, std::int32_t flag) {
    if (source == nullptr || destination == nullptr) return qsvStatusNullPointer;
    return is_scale_flag(flag) ? qsvStatusOk : qsvStatusBadFlag;
}

}  // namespace core
