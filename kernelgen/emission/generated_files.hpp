#pragma once

/**
 * @file
 * @brief What the build writes: kernels in a folder, lines of a manifest.
 */

#include <filesystem>
#include <string>
#include <vector>

#include "targets/target.hpp"

namespace kernelgen {

/** Writes `text`. An unchanged file keeps its time, so that only changed kernels are compiled
 * again. Throws std::runtime_error. */
void write_if_changed(const std::filesystem::path& path, const std::string& text);

/** Of a generated text, for a manifest: the 64-bit FNV-1a of Fowler, Noll and Vo in hexadecimal. */
std::string hash_of(const std::string& text);

/** What describes one family of kernels, in parts that a build may run side by side. */
struct Describer {
    std::vector<std::string> parts;
    void (*write_sources)(const Target& target, const std::filesystem::path& folder,
                          const std::string& part);
    void (*write_manifest)(const Target& target, const std::filesystem::path& file);
};

/** The program "TARGET FOLDER [PART...] | TARGET --manifest FILE": writes the target's sources of
 * the parts, of all where none is named, or its manifest. The folder is made where it is missing.
 * Returns its exit status. */
int describe(int argc, char** argv, const Describer& describer);

}  // namespace kernelgen
