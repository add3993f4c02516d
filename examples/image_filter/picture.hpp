#pragma once

/** @file @brief Pictures and their PNG files. */

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace image_filter {

struct Picture {
    static constexpr size_t kChannels = 4;  ///< red, green, blue, and how opaque a pixel is

    size_t width = 0;
    size_t height = 0;
    /** Row after row from the top, the channels of a pixel together; 0 to 255 as in files. */
    std::vector<uint8_t> samples;
};

/** Reads a file of any colour type; samples of 16 bits lose the lower 8. Throws example::Error. */
Picture ReadPng(const std::filesystem::path& path);

/** Makes the folder, too. Throws example::Error where that fails. */
void WritePng(const std::filesystem::path& path, const Picture& picture);

}  // namespace image_filter
