#pragma once

/** @file @brief The factor that a flag asks for, rounded once to the element's precision. */

#include <cmath>
#include <cstdint>

#include "support/kernel.hpp"

namespace qsvgen_test {

template <class E>
typename E::Real scale_factor(int length, Direction direction, std::int32_t flag) {
    using Real = typename E::Real;
    const bool by_length = (flag == qsvScaleFwdByN && direction != Direction::Inverse) ||
                           (flag == qsvScaleInvByN && direction != Direction::Forward);
    if (by_length) return Real{1} / static_cast<Real>(length);
    if (flag == qsvScaleBySqrtN) {
        // Rounded twice, yet to the nearest at every length: support_test shows it exactly.
        return static_cast<Real>(1.0L / std::sqrt(static_cast<long double>(length)));
    }
    return Real{1};
}

template <class E>
typename E::Real scale_factor(const Kernel<E>& kernel, std::int32_t flag) {
    return scale_factor<E>(kernel.length, kernel.direction, flag);
}

}  // namespace qsvgen_test
