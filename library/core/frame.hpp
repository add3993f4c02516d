#pragma once

/**
 * @file
 * @brief Checks and scale factors that every fixed-size kernel begins with.
 */

#include <cstdint>

#include "qsvgen.h"

namespace core {

/** A null pointer counts as aligned, so that the null test answers. */
inline bool aligned(const void* array) {
    return (reinterpret_cast<std::uintptr_t>(array) & 15U) == 0;
}

/** A scale factor as often as a vector holds it, so that products take it straight from memory. */
template <class Real>
struct alignas(16) ScaleVector {
    Real lane[16 / sizeof(Real)];
};

/** Scale factor for each flag value from 0 to 8; of use where the value is a flag. */
template <class Real>
struct ScaleTable {
    ScaleVector<Real> factor[qsvScaleNone + 1];

    static constexpr ScaleTable forward(Real by_length, Real by_root) {
        ScaleTable table{};
        table.set(qsvScaleFwdByN, by_length);
        table.set(qsvScaleInvByN, 1);
        table.set(qsvScaleBySqrtN, by_root);
        table.set(qsvScaleNone, 1);
        return table;
    }

    static constexpr ScaleTable inverse(Real by_length, Real by_root) {
        ScaleTable table = forward(by_length, by_root);
        table.set(qsvScaleFwdByN, 1);
        table.set(qsvScaleInvByN, by_length);
        return table;
    }

    /** For a transform that is its own inverse. */
    static constexpr ScaleTable both(Real by_length, Real by_root) {
        ScaleTable table = forward(by_length, by_root);
        table.set(qsvScaleInvByN, by_length);
        return table;
    }

    const Real* operator[](std::int32_t flag) const { return factor[flag].lane; }

  private:
    constexpr void set(int flag, Real value) {
        for (Real& lane : factor[flag].lane) lane = value;
    }
};

/** Whether `flag` is one of QsvScaleFlag. */
inline bool is_flag(std::int32_t flag) {
    constexpr std::uint32_t kFlags =
        1U << qsvScaleFwdByN | 1U << qsvScaleInvByN | 1U << qsvScaleBySqrtN | 1U << qsvScaleNone;
    const auto bit = static_cast<std::uint32_t>(flag);
    return bit <= qsvScaleNone && (kFlags >> bit & 1U) != 0;
}

/** Null pointers before the flag, as callers may rely on. */
inline QsvStatus check(const void* source, const void* destination, std::int32_t flag) {
    if (source == nullptr || destination == nullptr) return qsvStatusNullPointer;
    return is_flag(flag) ? qsvStatusOk : qsvStatusBadFlag;
}

}  // namespace core
