#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>

#include "response.hpp"

namespace image_filter {

struct CommandLine {
    std::filesystem::path picture;
    std::filesystem::path result = "build/image_filter.png";
    Filter filter = Filter::kLowPass;
    size_t block = 16;  ///< pixels of a side

    /** Beside the result, the picture as it was read. */
    std::filesystem::path before() const;
};

extern const char* const kUsage;

/** Nothing where the user asked for help; throws example::Error on wrong use. */
std::optional<CommandLine> ParseCommandLine(std::span<char* const> words);

}  // namespace image_filter
