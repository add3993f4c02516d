#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "request.hpp"

namespace qsvg_tool {

enum class Action { kHelp, kTransform, kExplain };

struct CommandLine {
    Action action = Action::kHelp;
    Request request;
    std::filesystem::path input = "-";  ///< "-" is standard input
    std::filesystem::path plot;         ///< empty: the result is printed

    bool reads_standard_input() const { return input == "-"; }
};

extern const char* const kUsage;

/** Throws example::Error on wrong use. Whether the library has the length is not looked at. */
CommandLine ParseCommandLine(std::span<char* const> words);

/** Throws an example::Error that says what is wrong and what to do. */
[[noreturn]] void WrongUse(const std::string& what);

}  // namespace qsvg_tool
