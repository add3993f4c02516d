#pragma once

/** @file @brief What the kernel compiler knows of a machine. */

#include <string_view>

namespace kernelgen {

/** How operations on vectors are written. */
enum class Spelling {
    SseIntrinsics,  ///< _mm_add_ps(a, b)
    VectorTypes,    ///< a + b, by the vector types that GCC and Clang share
    Pieces,         ///< the same, of vectors each of whose pieces of 16 bytes is such a vector
};

/** What instructions on vectors take and give. */
enum class Operands {
    OverwritesFirst,  ///< two, the first a register that becomes the result, the other anywhere
    Registers,    ///< three registers: what is in memory is loaded first, nothing is overwritten
    OneInMemory,  ///< three, of which one may be in memory; nothing is overwritten
};

/** A processor in one of its modes, with one set of instructions. */
struct Target {
    std::string_view name;  ///< of presets, and of the folders of what was found for it
    int vector_registers;
    Spelling spelling;
    Operands operands = Operands::OverwritesFirst;
    int vector_bytes = 16;
    /** Of levels: whose single kernels one has where none of its own are recorded. */
    const Target* level_below = nullptr;
};

}  // namespace kernelgen
