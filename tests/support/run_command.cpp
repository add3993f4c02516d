#include "support/run_command.hpp"

#include <sys/wait.h>

#include <cstdio>
#include <sstream>

namespace qsvgen_test {
namespace {

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word) {
        if (c == '\'') {
            text += "'\\''";
        } else {
            text += c;
        }
    }
    return text + "'";
}

}  // namespace

CommandResult run_command(const std::vector<std::string>& words, Errors errors) {
    std::string line = "LC_ALL=C";
    for (const auto& word : words) line += " " + quoted(word);
    if (errors == Errors::Together) line += " 2>&1";

    CommandResult result;
    FILE* pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) return result;
    char block[65536];
    for (;;) {
        const std::size_t count = fread(block, 1, sizeof block, pipe);
        if (count == 0) break;
        result.output.append(block, count);
    }
    const int status = pclose(pipe);
    if (WIFEXITED(status)) result.exit_code = WEXITSTATUS(status);
    return result;
}

std::vector<std::string> split_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> split_words(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

}  // namespace qsvgen_test
