/** @file @brief The library's machine code where processors have fused operations: it has none of
 * them. */

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>

#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

/** Of AArch64's names: fmadd, fmsub, fnmadd, fnmsub, fmla, fmlal2, fmls, fcmla, bfmlalb. Steps of
 * reciprocals are fused as well: frecps, frsqrts. */
bool is_fused(const std::string& mnemonic) {
    for (const char* stem :
         {"fmadd", "fmsub", "fnmadd", "fnmsub", "fmla", "fmls", "fcmla", "bfml", "bfmmla", "fmmla",
          "fmad", "fmsb", "fnmad", "fnmsb", "fnmla", "fnmls", "frecps", "frsqrts"}) {
        if (mnemonic.starts_with(stem)) return true;
    }
    return false;
}

/** From the test's environment, which is another machine's. */
std::string told(const char* variable) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

constexpr const char* kCount =
    "set -o pipefail; \"$0\" --disassemble --no-show-raw-insn --no-addresses \"$1\" | "
    "awk -F '\\t' 'NF > 1 { ++n[$2] } END { for (i in n) print i, n[i] }'";

/** How often the library has each instruction, by mnemonic. */
const std::map<std::string, int>& instructions() {
    static const auto all = [] {
        std::map<std::string, int> counts;
        // Counted by programs of the machine itself, which may not be the library's: two million
        // lines as "\tfadd\tv0.4s, v1.4s, v2.4s".
        const auto counted =
            run_command({"bash", "-c", kCount, told("QSVGEN_OBJDUMP"), told("QSVGEN_LIBRARY")});
        EXPECT_EQ(0, counted.exit_code) << told("QSVGEN_OBJDUMP");
        for (const auto& line : split_lines(counted.output)) {
            const auto words = split_words(line);
            if (words.size() == 2) counts[words[0]] = std::stoi(words[1]);
        }
        return counts;
    }();
    return all;
}

int count(const std::string& mnemonic) {
    const auto found = instructions().find(mnemonic);
    return found == instructions().end() ? 0 : found->second;
}

TEST(FusedOperations, AreKnownByTheirNames) {
    for (const char* fused : {"fmadd", "fnmsub", "fmla", "fmls", "fmlal2", "fcmla", "frecps"})
        EXPECT_TRUE(is_fused(fused)) << fused;
    for (const char* other : {"fmul", "fadd", "fneg", "fnmul", "fmov", "fcvtl2", "fmax", "mla"})
        EXPECT_FALSE(is_fused(other)) << other;
}

TEST(FusedOperations, AreNotInTheLibrary) {
    for (const auto& [mnemonic, times] : instructions())
        EXPECT_FALSE(is_fused(mnemonic)) << mnemonic << ", " << times << " times";
}

// What stands in their place, as many as there are: otherwise something else was read.
TEST(FusedOperations, AreProductsAndSumsInTheLibrary) {
    EXPECT_GT(count("fmul"), 30000);
    EXPECT_GT(count("fadd"), 30000);
    EXPECT_GT(count("fsub"), 30000);
}

}  // namespace
}  // namespace qsvgen_test
