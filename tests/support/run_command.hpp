#pragma once

/** @file @brief Runs a program and keeps what it printed. */

#include <string>
#include <vector>

namespace qsvgen_test {

struct CommandResult {
    int exit_code = -1;  ///< -1 where the program did not end by itself
    std::string output;  ///< standard output, and standard error where asked for
};

enum class Errors { Apart, Together };

/** The words are quoted, so that paths may hold any character. */
CommandResult run_command(const std::vector<std::string>& words, Errors errors = Errors::Apart);

std::vector<std::string> split_lines(const std::string& text);
std::vector<std::string> split_words(const std::string& line);

}  // namespace qsvgen_test
