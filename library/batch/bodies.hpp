#pragma once

/** @file @brief The bodies of each family, chosen by size; what the kernel compiler has made of
 * them. */

#include "batch/body.hpp"
#include "qsvgen.h"

namespace batch {

/** What a family's results of a size are multiplied by. */
template <class Real>
struct Scales {
    Real by_length;  ///< 1/N
    Real by_root;    ///< 1/sqrt(N)
    bool in_body;    ///< whether the body does so
};

// NOLINTBEGIN(bugprone-macro-parentheses): names are pasted.
#define QSVG_BATCH_BODIES(family)                              \
    void family##_32f(int size, const Groups<Real32>& groups); \
    void family##_64f(int size, const Groups<Real64>& groups); \
    Scales<Real32> family##_scales_32f(int size);              \
    Scales<Real64> family##_scales_64f(int size);
// NOLINTEND(bugprone-macro-parentheses)

QSVG_BATCH_BODIES(complex_forward)
QSVG_BATCH_BODIES(complex_inverse)
QSVG_BATCH_BODIES(real_forward)
QSVG_BATCH_BODIES(real_inverse)
QSVG_BATCH_BODIES(hartley)
QSVG_BATCH_BODIES(walsh_hadamard)

#undef QSVG_BATCH_BODIES

}  // namespace batch
