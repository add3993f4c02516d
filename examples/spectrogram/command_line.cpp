#include "command_line.hpp"

#include "common/arguments.hpp"

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

std::optional<CommandLine> ParseCommandLine(std::span<char* const> words) {
    const example::Arguments arguments(words, {.flags = {}, .with_values = {"-o"}, .hint = kUsage});
    if (arguments.wants_help()) return std::nullopt;
    CommandLine command_line;
    command_line.recording = arguments.recording({});
    command_line.png = arguments.value("-o").value_or(command_line.png.native());
    // Also keeps the data and the script beside it from taking the picture's name.
    if (command_line.png.extension() != ".png")
        example::WrongUse("The picture must end in .png.", kUsage);
    return command_line;
}

}  // namespace spectrogram
