#include "command_line.hpp"

#include <string>
#include <string_view>

#include "common/arguments.hpp"
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
    example::WrongUse(what, kUsage);
}

/** Leaves `number` as it is where the option is not given. */
template <typename Number>
void TakeNumber(const example::Arguments& arguments, std::string_view option, Number& number) {
    const auto text = arguments.value(option);
    if (!text) return;
    const auto parsed = example::ParseNumber<Number>(*text);
    if (!parsed)
        WrongUse(std::string(option) + " needs a number instead of '" + std::string(*text) + "'.");
    number = *parsed;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<char* const> words) {
    const example::Arguments arguments(
        words, {.flags = {}, .with_values = {"-o", "--cutoff", "--taps"}, .hint = kUsage});
    if (arguments.wants_help()) return std::nullopt;
    CommandLine command_line;
    command_line.recording = arguments.recording(command_line.recording);
    command_line.wav = arguments.value("-o").value_or(command_line.wav.native());
    TakeNumber(arguments, "--cutoff", command_line.cutoff);
    TakeNumber(arguments, "--taps", command_line.taps);
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
