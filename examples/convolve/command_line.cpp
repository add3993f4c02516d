#include "command_line.hpp"

#include <charconv>
#include <string>
#include <string_view>

#include "common/error.hpp"
#include "overlap_add.hpp"

namespace convolve {

const char* const kUsage =
    "usage: convolve [--cutoff HZ] [--taps N] [-o OUT.wav] [RECORDING]\n"
    "\n"
    "Filters a sound file (WAV, FLAC, AIFF, ...) by a low-pass, and checks the result against the\n"
    "filter's definition. Several channels are averaged.\n"
    "\n"
    "  --cutoff HZ  where half of the amplitude is left, if the taps suffice; 2000 if not given\n"
    "  --taps N     length of the filter in samples, 1 to 63; 33 if not given\n"
    "  -o OUT.wav   where the filtered recording goes (build/convolve.wav if not given)\n"
    "  RECORDING    /usr/share/sounds/alsa/Front_Center.wav if not given\n"
    "  --help       this text\n";

namespace {

[[noreturn]] void WrongUse(const std::string& what) {
    throw example::Error(example::ExitCode::kBadInput, what + "\n" + kUsage);
}

template <typename Number>
Number Parse(std::string_view option, std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        WrongUse(std::string(option) + " needs a number instead of '" + std::string(text) + "'.");
    }
    return number;
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
        } else if (argument == "-o" || argument == "--cutoff" || argument == "--taps") {
            if (++i == arguments.size()) WrongUse(std::string(argument) + " needs a value.");
            const std::string_view value = arguments[i];
            if (argument == "-o") {
                command_line.wav = value;
            } else if (argument == "--cutoff") {
                command_line.cutoff = Parse<double>(argument, value);
            } else {
                command_line.taps = Parse<size_t>(argument, value);
            }
        } else {
            WrongUse("Unknown option '" + std::string(argument) + "'.");
        }
    }
    if (command_line.recording.empty()) WrongUse("Name a recording.");
    if (command_line.taps < 1 || command_line.taps > kMaxTaps) {
        WrongUse("The filter has 1 to " + std::to_string(kMaxTaps) + " taps.");
    }
    std::error_code ignored;
    if (std::filesystem::equivalent(command_line.recording, command_line.wav, ignored)) {
        WrongUse("The result would overwrite the recording.");
    }
    return command_line;
}

}  // namespace convolve
