/** @file @brief The machine code of calls whose length the compiler knows. */

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

/** What a function does other than moving values. */
struct Caller {
    std::vector<std::string> called;        ///< by a call or a jump, name by name
    std::vector<std::string> instructions;  ///< mnemonics, to that of its end
    bool ends = false;
};

/** By the name behind "call_". */
std::map<std::string, Caller> callers() {
    const auto listing = run_command(
        {"objdump", "-d", "-r", "--no-show-raw-insn", "-M", "intel", QSVGEN_DIRECT_CALLS});
    EXPECT_EQ(0, listing.exit_code);
    std::map<std::string, Caller> callers;
    Caller* caller = nullptr;
    for (const auto& line : split_lines(listing.output)) {
        const auto words = split_words(line);
        if (const auto name = line.find(" <call_"); line.ends_with(">:")) {
            // Other functions than those that were written are none that may be there.
            EXPECT_NE(std::string::npos, name) << line;
            if (name == std::string::npos) continue;
            caller = &callers[line.substr(name + 7, line.size() - name - 9)];
        } else if (caller != nullptr && words.size() >= 3 && words[1].starts_with("R_")) {
            const auto& symbol = words[2];
            caller->called.push_back(symbol.substr(0, symbol.find_first_of("-+@")));
        } else if (caller != nullptr && !caller->ends && words.size() >= 2) {
            caller->instructions.push_back(words[1]);
            // Behind it the next function's boundary is filled up.
            caller->ends = words[1] == "jmp" || words[1] == "ret";
        }
    }
    return callers;
}

TEST(DirectCall, IsOfTheKernelAndOfNothingElse) {
    const auto all = callers();
    EXPECT_EQ(11U, all.size());
    for (const auto& [kernel, caller] : all)
        EXPECT_EQ(std::vector<std::string>{kernel}, caller.called) << kernel;
}

TEST(DirectCall, ChecksNothing) {
    for (const auto& [kernel, caller] : callers()) {
        for (const auto& mnemonic : caller.instructions) {
            const bool is_conditional = mnemonic.starts_with("j") && mnemonic != "jmp";
            EXPECT_FALSE(is_conditional || mnemonic == "cmp" || mnemonic == "test" ||
                         mnemonic.starts_with("cmov"))
                << mnemonic << " in the caller of " << kernel;
        }
    }
}

TEST(DirectCall, IsAJumpWhereArgumentsAreInRegisters) {
    if constexpr (sizeof(void*) == 4) GTEST_SKIP() << "arguments are on the stack";
    for (const auto& [kernel, caller] : callers()) {
        auto moves = caller.instructions;
        ASSERT_FALSE(moves.empty()) << kernel;
        EXPECT_EQ("jmp", moves.back()) << kernel;
        moves.pop_back();
        // The scale, and an address that is another argument of the kernel.
        EXPECT_LE(moves.size(), 2U) << kernel;
        EXPECT_EQ(std::vector<std::string>(moves.size(), "mov"), moves) << kernel;
    }
}

}  // namespace
}  // namespace qsvgen_test
