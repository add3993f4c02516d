#pragma once

#include "targets/target.hpp"
#include "targets/x86_64_v3.hpp"

namespace kernelgen {

/** A level of x86-64: processors with AVX-512. */
inline constexpr Target kX86_64_v4{
    .name = "x86-64-v4",
    .vector_registers = 32,
    .spelling = Spelling::VectorTypes,
    .operands = Operands::OneInMemory,
    .vector_bytes = 64,
    .level_below = &kX86_64_v3,
};

}  // namespace kernelgen
