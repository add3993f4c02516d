#pragma once

#include "targets/target.hpp"
#include "targets/x86_64.hpp"

namespace kernelgen {

/** A level of x86-64: processors with AVX2. */
inline constexpr Target kX86_64_v3{
    .name = "x86-64-v3",
    .vector_registers = 16,
    .spelling = Spelling::VectorTypes,
    .operands = Operands::OneInMemory,
    .vector_bytes = 32,
    .level_below = &kX86_64,
};

}  // namespace kernelgen
