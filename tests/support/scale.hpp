#pragma once

/** @file @brief The factor that a flag asks for, rounded once to the element's precision. */

#include <cmath>
#include <cstdint>

#include "support/kernel_table.hpp"

namespace qsvgen_test {

template <class E>
typename E::Real scale_factor(int length, Direction direction, std::int32_t flag) {
    using Real = typename E::Real;
    const std::int32_t by_length =
        direction == Direction::Forward ? qsvScaleFwdByN : qsvScaleInvByN;
    if (flag == by_length) return Real{1} / static_cast<Real>(length);
    if (flag == qsvScaleBySqrtN) {
        // Rounded twice, yet to the nearest at every length: support_test shows it exactly.
        return static_cast<Real>(1.0L / std::sqrt(static_cast<long double>(length)));
    }
    return Real{1};
}

}  // namespace qsvgen_test
