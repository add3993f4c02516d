#pragma once

#include "targets/target.hpp"

namespace kernelgen {

/** 32-bit x86 with SSE2. */
inline constexpr Target kIa32{
    .name = "ia32",
    .vector_registers = 8,
    .spelling = Spelling::SseIntrinsics,
};

}  // namespace kernelgen
