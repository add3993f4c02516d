#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>

namespace convolve {

struct CommandLine {
    /** One that the distribution ships. */
    std::filesystem::path recording = "/usr/share/sounds/alsa/Front_Center.wav";
    std::filesystem::path wav = "build/convolve.wav";
    double cutoff = 2000;  ///< Hz
    size_t taps = 33;      ///< samples of the impulse response, 1 to kMaxTaps
};

extern const char* const kUsage;

/** Nothing where the user asked for help; throws example::Error on wrong use. */
std::optional<CommandLine> ParseCommandLine(std::span<char* const> words);

}  // namespace convolve
