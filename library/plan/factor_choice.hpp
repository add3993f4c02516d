#pragma once

/** @file @brief By which factor a plan node splits its length. */

#include <cstdint>

#include "qsvgen.h"

namespace plan {

/**
 * The largest power of two that divides `value`, up to a ceiling that grows with `value` to 32; 0
 * for odd values and those below 4.
 */
constexpr std::int32_t factor_of(std::int32_t value) {
    const std::int32_t ceiling = value >= 512   ? 32
                                 : value >= 128 ? 16
                                 : value >= 32  ? 8
                                 : value >= 16  ? 4
                                 : value >= 4   ? 2
                                                : 0;
    for (std::int32_t factor = ceiling; factor >= 2; factor /= 2) {
        if (value % factor == 0) return factor;
    }
    return 0;
}

}  // namespace plan

extern "C" {

/**
 * Stores plan::factor_of(value).
 * @return qsvStatusOk; qsvStatusBadLength, with `out` as it was, where it is 0
 */
QsvStatus divisorsIntNonTriv(std::int32_t* out, std::int32_t value);
}
