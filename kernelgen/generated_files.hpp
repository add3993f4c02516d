#pragma once

/**
 * @file
 * @brief The folder into which the build writes kernels.
 */

#include <filesystem>
#include <string>

namespace kernelgen {

/** Writes `text`. An unchanged file keeps its time, so that only changed kernels are compiled
 * again. Throws std::runtime_error. */
void write_if_changed(const std::filesystem::path& path, const std::string& text);

}  // namespace kernelgen
