#pragma once

namespace kernelgen {

/** What scheduling must know of the processor and its mode. */
struct Target {
    int vector_registers;
};

/** 32-bit x86 with SSE2. */
inline constexpr Target kX86Sse2{8};

}  // namespace kernelgen
