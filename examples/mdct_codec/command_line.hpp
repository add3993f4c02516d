#pragma once

#include <filesystem>
#include <optional>
#include <span>

namespace mdct_codec {

struct CommandLine {
    /** One that the distribution ships. */
    std::filesystem::path recording = "/usr/share/sounds/alsa/Front_Center.wav";
    std::filesystem::path wav = "build/mdct_codec.wav";
    std::optional<int> bits = 4;  ///< of a coefficient; nothing: not quantised

    /** The plot goes beside the recording that was decoded. */
    std::filesystem::path png() const {
        return std::filesystem::path(wav).replace_extension(".png");
    }
};

extern const char* const kUsage;

/** Nothing where the user asked for help; throws example::Error on wrong use. */
std::optional<CommandLine> ParseCommandLine(std::span<char* const> words);

}  // namespace mdct_codec
