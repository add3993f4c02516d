#pragma once

/** @file @brief The exported functions of the DCT-IV, by element type. */

#include <cstdint>

#include "qsvgen.h"
#include "support/elements.hpp"

namespace qsvgen_test {

/** Each kind of tree: leaves, the stages alone, one split and two. */
inline constexpr std::int32_t kPlanLengths[] = {2, 4, 8, 16, 32, 64, 128, 512, 2048, 4096, 131072};

template <class E>
struct Dct4Interface;

#define QSVG_TEST_DCT4_INTERFACE(E, SUFFIX)                            \
    template <>                                                        \
    struct Dct4Interface<E> {                                          \
        using Plan = QsvDCT4Plan_##SUFFIX;                             \
        static constexpr auto kGetSize = qsvgDCT4GetSize_##SUFFIX;     \
        static constexpr auto kInit = qsvgDCT4Init_##SUFFIX;           \
        static constexpr auto kInitAlloc = qsvgDCT4InitAlloc_##SUFFIX; \
        static constexpr auto kFree = qsvgDCT4Free_##SUFFIX;           \
        static constexpr auto kRun = qsvgDCT4_##SUFFIX;                \
    };
QSVG_TEST_DCT4_INTERFACE(RealSingle, 32f)
QSVG_TEST_DCT4_INTERFACE(RealDouble, 64f)
#undef QSVG_TEST_DCT4_INTERFACE

}  // namespace qsvgen_test
