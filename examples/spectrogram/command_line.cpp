#include "command_line.hpp"

#include <string_view>

#include "common/error.hpp"

namespace spectrogram {

const char* const kUsage =
    "usage: spectrogram [-o OUT.png] RECORDING\n"
    "\n"
    "Draws level over time and frequency of a sound file (WAV, FLAC, AIFF, ...).\n"
    "Several channels are averaged.\n"
    "\n"
    "  -o OUT.png  where the picture goes (spectrogram.png if not given);\n"
    "              its data and its gnuplot script go beside it\n"
    "  --help      this text\n";

namespace {

[[noreturn]] void WrongUse(const std::string& what) {
    throw example::Error(example::ExitCode::kBadInput, what + "\n" + kUsage);
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<char* const> arguments) {
    CommandLine command_line;
    bool only_names = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (!only_names && argument == "--") {
            only_names = true;
        } else if (!only_names && argument == "--help") {
            return std::nullopt;
        } else if (!only_names && argument == "-o") {
            if (++i == arguments.size()) WrongUse("-o needs the name of a picture.");
            command_line.png = arguments[i];
            // Also keeps the data and the script beside it from taking the picture's name.
            if (command_line.png.extension() != ".png") WrongUse("The picture must end in .png.");
        } else if (!only_names && argument.starts_with('-')) {
            WrongUse("Unknown option '" + std::string(argument) + "'.");
        } else if (!command_line.recording.empty()) {
            WrongUse("One recording at a time.");
        } else {
            command_line.recording = argument;
        }
    }
    if (command_line.recording.empty()) WrongUse("Name a recording.");
    return command_line;
}

}  // namespace spectrogram
