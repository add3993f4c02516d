#include "plan/factor_choice.hpp"

extern "C" QsvStatus divisorsIntNonTriv(std::int32_t* out, std::int32_t value) {
    const std::int32_t factor = plan::factor_of(value);
    if (factor == 0) return qsvStatusBadLength;
    *out = factor;
    return qsvStatusOk;
}
