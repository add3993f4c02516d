#pragma once

#include "targets/target.hpp"

namespace kernelgen {

/** AArch64, little-endian, with what all of its processors have, vectors of 16 bytes. */
inline constexpr Target kAarch64{
    .name = "aarch64",
    .vector_registers = 32,
    .spelling = Spelling::VectorTypes,
    .operands = Operands::Registers,
};

}  // namespace kernelgen
