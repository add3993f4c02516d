#pragma once

#include "targets/target.hpp"

namespace kernelgen {

/** 64-bit x86 with what all of its processors have, SSE2. */
inline constexpr Target kX86_64{
    .name = "x86-64",
    .vector_registers = 16,
    .spelling = Spelling::VectorTypes,
};

}  // namespace kernelgen
