#pragma once

#include <filesystem>
#include <optional>
#include <span>

namespace spectrogram {

struct CommandLine {
    std::filesystem::path recording;
    std::filesystem::path png = "spectrogram.png";
};

extern const char* const kUsage;

/** Nothing where the user asked for help; throws example::Error on wrong use. */
std::optional<CommandLine> ParseCommandLine(std::span<char* const> words);

}  // namespace spectrogram
