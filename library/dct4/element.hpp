#pragma once

/**
 * @file
 * @brief The element type that a source of the DCT-IV is compiled for: each is written once and
 * compiled with QSVG_REAL_BITS 32 and 64.
 *
 * What differs by element stands in a namespace of its own, dct4::QSVG_ELEMENT, or carries the
 * element in its name: DCT4(env1_plan) is owngDCT4_32fw7_env1_plan or owngDCT4_64fw7_env1_plan.
 */

#include <cstdint>

#include "core/vector_access.hpp"
#include "qsvgen.h"

#if QSVG_REAL_BITS == 32
#define QSVG_ELEMENT real32
/** An internal name of the object model. */
#define DCT4(name) owngDCT4_32fw7_##name
/** An exported name, or one of the plan runtime. */
#define EXPORTED(name) qsvg##name##_32f
#elif QSVG_REAL_BITS == 64
#define QSVG_ELEMENT real64
#define DCT4(name) owngDCT4_64fw7_##name
#define EXPORTED(name) qsvg##name##_64f
#else
#error "QSVG_REAL_BITS is 32 or 64"
#endif

namespace dct4::QSVG_ELEMENT {

#if QSVG_REAL_BITS == 32
using Real = Real32;
using Plan = QsvDCT4Plan_32f;
#else
using Real = Real64;
using Plan = QsvDCT4Plan_64f;
#endif

/** Lanes of the vectors that plans are made for, in the order of their tables and in what they
 * refuse: of every machine the same, whatever its own vectors are. */
constexpr std::int32_t kPlanLanes = 16 / sizeof(Real);

}  // namespace dct4::QSVG_ELEMENT

#include "dct4/vectors.hpp"
