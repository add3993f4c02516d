#pragma once

/**
 * @file
 * @brief The machine code of a shared object, function by function, and what its instructions are.
 */

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qsvgen_test {

struct Instruction {
    std::uint32_t address = 0;
    std::string mnemonic;  ///< Intel spelling, without prefixes
    std::string operands;
    std::uint32_t target = 0;   ///< of a direct jump or call
    std::string target_symbol;  ///< its symbol, with "+0x..." inside a function; else empty

    bool is_jump() const;              ///< any jump, conditional or not
    bool is_conditional_jump() const;  ///< loop and jecxz too
    bool is_call() const;
    bool is_direct() const { return !target_symbol.empty(); }
    bool uses_other_vector_registers() const;  ///< than xmm: mm, ymm, zmm
};

/** A short form for messages: "1a2b: addps xmm0,xmm1". */
std::string to_string(const Instruction& instruction);

struct Function {
    std::string name;
    std::vector<Instruction> code;

    std::uint32_t begin() const { return code.front().address; }
    bool holds(std::uint32_t address) const;
};

using Disassembly = std::map<std::string, Function>;

/** By objdump; empty where it fails. */
Disassembly disassemble(const std::string& path);
/** The parsing alone, of what objdump -d -M intel --no-show-raw-insn prints. */
Disassembly parse_disassembly(const std::string& listing);

/** The sets are closed: an instruction they do not name is in none of them. */
bool is_general_purpose(const std::string& mnemonic);
bool is_sse2_or_older(const std::string& mnemonic);
/** Sums, products, quotients, roots, extremes, comparisons and conversions. */
bool is_packed_arithmetic(const std::string& mnemonic);
bool is_scalar_arithmetic(const std::string& mnemonic);
/** Of either shape, where an operand or the result is binary64. */
bool is_binary64_arithmetic(const std::string& mnemonic);

}  // namespace qsvgen_test
