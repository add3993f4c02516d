#include "command_line.hpp"

#include <charconv>
#include <string>
#include <string_view>

#include "common/error.hpp"
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
    throw example::Error(example::ExitCode::kBadInput, what + "\n" + kUsage);
}

std::optional<int> ParseBits(std::string_view text) {
    if (text == "none") return std::nullopt;
    int bits = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bits);
    if (error != std::errc() || end != text.data() + text.size() || bits < kFewestBits ||
        bits > kMostBits) {
        WrongUse("--bits needs a number from " + std::to_string(kFewestBits) + " to " +
                 std::to_string(kMostBits) + ", or none, instead of '" + std::string(text) + "'.");
    }
    return bits;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<char* const> arguments) {
    CommandLine command_line;
    bool only_names = false;
    bool named = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (only_names || !argument.starts_with('-')) {
            if (named) WrongUse("One recording at a time.");
            command_line.recording = argument;
            named = true;
        } else if (argument == "--") {
            only_names = true;
        } else if (argument == "--help") {
            return std::nullopt;
        } else if (argument == "-o" || argument == "--bits") {
            if (++i == arguments.size()) WrongUse(std::string(argument) + " needs a value.");
            if (argument == "-o") {
                command_line.wav = arguments[i];
            } else {
                command_line.bits = ParseBits(arguments[i]);
            }
        } else {
            WrongUse("Unknown option '" + std::string(argument) + "'.");
        }
    }
    if (command_line.recording.empty()) WrongUse("Name a recording.");
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
