#pragma once

namespace kernelgen {

/** What scheduling and emission must know of the processor and its mode. */
struct Target {
    int vector_registers;
    int vector_bytes;
    const char* intrinsics_header;
};

/** 32-bit x86 with SSE2. */
inline constexpr Target kX86Sse2{8, 16, "emmintrin.h"};

}  // namespace kernelgen
