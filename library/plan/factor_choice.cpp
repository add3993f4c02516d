#include "plan/factor_choice.hpp"

namespace {

/** The largest factor worth trying; 0 where none is. */
std::int32_t ceiling_of(std::int32_t value) {
    if (value >= 512) return 32;
    if (value >= 128) return 16;
    if (value >= 32) return 8;
    if (value >= 16) return 4;
    if (value >= 4) return 2;
    return 0;
}

}  // namespace

extern "C" QsvStatus divisorsIntNonTriv(std::int32_t* out, std::int32_t value) {
    for (std::int32_t factor = ceiling_of(value); factor >= 2; factor /= 2) {
        if (value % factor != 0) continue;
        *out = factor;
        return qsvStatusOk;
    }
    return qsvStatusBadLength;
}
