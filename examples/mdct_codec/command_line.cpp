#include "command_line.hpp"

#include <string>
#include <string_view>

#include "common/arguments.hpp"
#include "quantiser.hpp"

namespace mdct_codec {

const char* const kUsage =
    "usage: mdct_codec [--bits BITS] [-o OUT.wav] [RECORDING]\n"
    "\n"
    "Takes a sound file (WAV, FLAC, AIFF, ...) through a windowed lapped transform of 256 bands,\n"
    "quantises what comes out, and decodes it again. Several channels are averaged. Prints the\n"
    "signal-to-noise ratio and the compression, and draws both spectra to OUT.png.\n"
    "\n"
    "  --bits BITS  of each coefficient, 2 to 16; 4 if not given; none: no quantisation, and a\n"
    "               check that everything comes back but for rounding\n"
    "  -o OUT.wav   where the decoded recording goes (build/mdct_codec.wav if not given)\n"
    "  RECORDING    /usr/share/sounds/alsa/Front_Center.wav if not given\n"
    "  --help       this text\n";

namespace {

[[noreturn]] void WrongUse(const std::string& what) {
    example::WrongUse(what, kUsage);
}

std::optional<int> ParseBits(std::string_view text) {
    if (text == "none") return std::nullopt;
    const auto bits = example::ParseNumber<int>(text);
    if (!bits || *bits < kFewestBits || *bits > kMostBits) {
        WrongUse("--bits needs a number from " + std::to_string(kFewestBits) + " to " +
                 std::to_string(kMostBits) + ", or none, instead of '" + std::string(text) + "'.");
    }
    return bits;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<char* const> words) {
    const example::Arguments arguments(
        words, {.flags = {}, .with_values = {"-o", "--bits"}, .hint = kUsage});
    if (arguments.wants_help()) return std::nullopt;
    CommandLine command_line;
    command_line.recording = arguments.recording(command_line.recording);
    command_line.wav = arguments.value("-o").value_or(command_line.wav.native());
    if (const auto bits = arguments.value("--bits")) command_line.bits = ParseBits(*bits);
    if (command_line.wav.empty()) WrongUse("Name a file for the result.");
    std::error_code ignored;
    for (const auto& result : {command_line.wav, command_line.png()}) {
        if (std::filesystem::equivalent(command_line.recording, result, ignored)) {
            WrongUse("The result would overwrite the recording.");
        }
    }
    return command_line;
}

}  // namespace mdct_codec
