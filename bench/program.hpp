#pragma once

/** @file @brief What the programs that measure have in common. */

#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "transform_library.hpp"

namespace bench {

/** Options that are followed by a text, such as "--library=", and where it goes. */
using TextOptions = std::vector<std::pair<std::string_view, std::string*>>;
/** Options that say yes by being there, such as "--quick". */
using FlagOptions = std::vector<std::pair<std::string_view, bool*>>;

/** What the build was made by that this program is of. */
extern const char* const kOwnCompiler;

/**
 * Reads `texts` and `flags`. Returns false where --help has been answered; throws
 * std::invalid_argument for an unknown option.
 */
bool ReadOptions(int argc, char** argv, const char* usage, const TextOptions& texts,
                 const FlagOptions& flags);
/** Reads `texts` and --quick. */
bool ReadOptions(int argc, char** argv, const char* usage, const TextOptions& texts, bool& quick);

/** Processor and library, a line each. */
void PrintEnvironment(const TransformLibrary& library);

/** Says that few rounds are no result. */
void PrintRounds(bool quick);

/** A file in a folder that is made where it is missing. */
std::ofstream Created(const std::string& path);

/** Throws std::runtime_error where not all of the file could be written. */
void Finish(std::ofstream& file, const std::string& path);

/** Calls `main_part`, prints what it throws behind `name`, and returns the exit status. */
int Run(const char* name, const char* usage, int (*main_part)(int, char**), int argc, char** argv);

}  // namespace bench
