#pragma once

/** @file @brief By which factor a plan node splits its length. */

#include <cstdint>

#include "qsvgen.h"

extern "C" {

/**
 * Stores the largest power of two that divides `value`, up to a ceiling that grows with `value`
 * to 32.
 * @return qsvStatusOk; qsvStatusBadLength, with `out` as it was, for odd values and those below 4
 */
QsvStatus divisorsIntNonTriv(std::int32_t* out, std::int32_t value);
}
