#pragma once

/** @file @brief Calls a function the way any 32-bit caller may: on a stack of any word. */

#include <cstdint>

namespace qsvgen_test {

/** What the caller's registers held after the call, where the callee has to keep them. */
struct KeptRegisters {
    std::uint32_t ebx;
    std::uint32_t esi;
    std::uint32_t edi;
    std::uint32_t ebp;
};

/** What those registers are set to before the call. */
inline constexpr KeptRegisters kRegistersBefore = {0x11111111, 0x22222222, 0x33333333, 0x44444444};

}  // namespace qsvgen_test

/**
 * Calls function(arguments[0], ..., arguments[4]) with the stack pointer at `skew` modulo 16 at
 * the call instruction, and returns what it returned.
 */
extern "C" std::int32_t call_on_skewed_stack(const void* function, const std::uint32_t* arguments,
                                             std::uint32_t skew, qsvgen_test::KeptRegisters* kept);
