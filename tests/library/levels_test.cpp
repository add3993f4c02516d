/** @file @brief The library's levels as files: what instructions they are made of, and which one a
 * program gets. */

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/run_command.hpp"

namespace qsvgen_test {
namespace {

constexpr char kLoader[] = "/lib64/ld-linux-x86-64.so.2";

/** A variable that CTest sets. */
std::string told(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/** "baseline", "x86-64-v3", ..: each with its file. */
std::map<std::string, std::string> files_of_levels() {
    std::map<std::string, std::string> files;
    for (const auto& pair : split_words(told("QSVGEN_LEVELS"))) {
        const auto equals = pair.find('=');
        files[pair.substr(0, equals)] = pair.substr(equals + 1);
    }
    return files;
}

bool has(const std::string& instruction, const std::string& word) {
    return instruction.find(word) != std::string::npos;
}

/** Registers 16 to 31 and masks are AVX-512's, too. */
bool is_of_v4(const std::string& instruction) {
    if (has(instruction, "%zmm") || has(instruction, "{%k")) return true;
    for (const char* kind : {"%xmm", "%ymm"}) {
        for (std::size_t at = instruction.find(kind); at != std::string::npos;
             at = instruction.find(kind, at + 1)) {
            if (std::stoi(instruction.substr(at + 4, 2)) >= 16) return true;
        }
    }
    return false;
}

bool is_of_v3(const std::string& instruction) {
    return has(instruction, "%ymm") || (instruction.starts_with("v") && has(instruction, "%xmm"));
}

bool is_fused(const std::string& instruction) {
    return instruction.starts_with("vfm") || instruction.starts_with("vfnm");
}

/** What a level's machine code has of each kind: how many instructions, and the first of them. */
struct Kind {
    int count = 0;
    std::string first;

    void add(const std::string& instruction) {
        if (count++ == 0) first = instruction;
    }
};
struct Facts {
    Kind fused;
    Kind of_v3;
    Kind of_v4;
};

Facts facts_of(const std::string& file) {
    const auto result =
        run_command({"objdump", "--disassemble", "--no-show-raw-insn", "--no-addresses", file});
    EXPECT_EQ(0, result.exit_code) << "objdump " << file;
    Facts facts;
    int instructions = 0;
    // "\tvaddps %ymm1,%ymm2,%ymm3"
    for (const auto& line : split_lines(result.output)) {
        if (!line.starts_with("\t")) continue;
        const std::string instruction = line.substr(1);
        ++instructions;
        if (is_fused(instruction)) facts.fused.add(instruction);
        if (is_of_v4(instruction)) facts.of_v4.add(instruction);
        if (is_of_v3(instruction)) facts.of_v3.add(instruction);
    }
    EXPECT_GT(instructions, 100000) << file;
    return facts;
}

/** Of all levels, read once. */
const std::map<std::string, Facts>& facts_of_levels() {
    static const auto all = [] {
        std::map<std::string, Facts> facts;
        for (const auto& [level, file] : files_of_levels()) facts[level] = facts_of(file);
        return facts;
    }();
    return all;
}

TEST(Levels, ContainNoFusedOperation) {
    for (const auto& [level, facts] : facts_of_levels())
        EXPECT_EQ(0, facts.fused.count) << level << ": " << facts.fused.first;
}

TEST(Levels, ContainNoInstructionBeyondTheirOwn) {
    for (const auto& [level, facts] : facts_of_levels()) {
        if (level == "baseline") {
            EXPECT_EQ(0, facts.of_v3.count) << level << ": " << facts.of_v3.first;
        }
        if (level != "x86-64-v4") {
            EXPECT_EQ(0, facts.of_v4.count) << level << ": " << facts.of_v4.first;
        }
    }
}

TEST(Levels, MakeUseOfWhatTheyHave) {
    for (const auto& [level, facts] : facts_of_levels()) {
        if (level == "x86-64-v3") {
            EXPECT_GT(facts.of_v3.count, 100000);
        }
        if (level == "x86-64-v4") {
            EXPECT_GT(facts.of_v4.count, 100000);
        }
    }
}

/** Levels that the loader of this machine would pick, as its help lists them: the highest first. */
std::vector<std::string> supported_levels() {
    std::vector<std::string> levels;
    for (const auto& line : split_lines(run_command({kLoader, "--help"}).output)) {
        const auto words = split_words(line);
        if (words.size() > 1 && words[0].starts_with("x86-64-v") &&
            words[1].starts_with("(supported"))
            levels.push_back(words[0]);
    }
    return levels;
}

/** What a program finds beside itself where the loader may use the levels named, separated by
 * colons. */
std::string target_code(const std::string& levels) {
    const auto result =
        run_command({kLoader, "--glibc-hwcaps-mask", levels, told("QSVGEN_PRINT_TARGET_CODE")});
    EXPECT_EQ(0, result.exit_code) << result.output;
    return split_lines(result.output).at(0);
}

TEST(Levels, ArePickedByTheLoaderInTheBuildFolder) {
    const auto built = files_of_levels();
    EXPECT_EQ("x64", target_code("none"));
    std::string highest;
    for (const auto& level : supported_levels()) {
        if (!built.contains(level)) continue;
        // "v4" of x86-64-v4
        const std::string code = level.substr(level.rfind('-') + 1);
        EXPECT_EQ(code, target_code(level)) << level;
        if (highest.empty()) highest = code;
    }
    if (highest.empty()) GTEST_SKIP() << "this processor has no level above the baseline";
    EXPECT_EQ(highest, split_lines(run_command({told("QSVGEN_PRINT_TARGET_CODE")}).output).at(0));
}

}  // namespace
}  // namespace qsvgen_test
