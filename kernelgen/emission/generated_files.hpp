#pragma once

/**
 * @file
 * @brief What the build writes: kernels in a folder, lines of a manifest.
 */

#include <filesystem>
#include <string>

namespace kernelgen {

/** Writes `text`. An unchanged file keeps its time, so that only changed kernels are compiled
 * again. Throws std::runtime_error. */
void write_if_changed(const std::filesystem::path& path, const std::string& text);

/** Of a generated text, for a manifest: the 64-bit FNV-1a of Fowler, Noll and Vo in hexadecimal. */
std::string hash_of(const std::string& text);

/** What describes one family of kernels. */
struct Describer {
    void (*write_sources)(const std::filesystem::path& folder);
    void (*write_manifest)(const std::filesystem::path& file);
};

/** The program "FOLDER | --manifest FILE": calls one of the two. Returns its exit status. */
int describe(int argc, char** argv, const Describer& describer);

}  // namespace kernelgen
