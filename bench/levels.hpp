#pragma once

#include <string>

namespace bench {

/** The highest level of the library that was built and that the processor has: x86-64-v3. */
std::string HighestLevel();

/**
 * The file of a level. Throws std::invalid_argument where none was built, std::runtime_error where
 * the processor lacks it.
 */
std::string LibraryOfLevel(const std::string& level);

}  // namespace bench
