#include <cstdio>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "command_line.hpp"
#include "common/error.hpp"
#include "common/progress.hpp"
#include "common/run_program.hpp"
#include "common/wav_reader.hpp"
#include "common/wav_writer.hpp"
#include "low_pass.hpp"
#include "overlap_add.hpp"
#include "self_check.hpp"

namespace {

using namespace convolve;

std::vector<float> DesignFilter(const CommandLine& command_line, int sample_rate) {
    if (!(command_line.cutoff > 0 && command_line.cutoff < sample_rate / 2.0)) {
        throw example::Error(
            example::ExitCode::kBadInput,
            "The cutoff must lie between 0 Hz and half the recording's sample rate of " +
                std::to_string(sample_rate) + " Hz.\nGive another one by --cutoff.");
    }
    return LowPass(command_line.cutoff, sample_rate, command_line.taps);
}

void Judge(const SelfCheck& check) {
    std::ostringstream text;
    text << std::scientific << std::setprecision(2) << check.largest_difference << " (bound "
         << check.bound << ", full scale 1)";
    std::cout << "largest difference from direct convolution  " << text.str() << '\n';
    if (!check.Passed()) {
        throw example::Error(example::ExitCode::kFailed,
                             "the result is wrong: it differs from direct convolution by " +
                                 text.str() + ".\nNothing was written.");
    }
}

void Filter(const CommandLine& command_line) {
    const example::Recording recording = example::ReadRecording(command_line.recording);
    const std::vector<float> response = DesignFilter(command_line, recording.sample_rate);
    std::cout << "recording  " << command_line.recording.string() << ", " << recording.sample_rate
              << " Hz, " << recording.channels
              << (recording.channels == 1 ? " channel, " : " channels, averaged, ")
              << recording.duration() << " s\n"
              << "filter     low-pass at " << command_line.cutoff << " Hz, " << response.size()
              << " taps\n"
              << "blocks     of " << BlockLength(response.size())
              << " samples, transforms of length " << kTransformLength << '\n'
              << std::flush;

    example::Progress filtering(stderr, "samples filtered");
    const std::vector<float> filtered = OverlapAdd(
        recording.samples, response, [&](size_t done, size_t all) { filtering.Report(done, all); });
    example::Progress checking(stderr, "samples checked");
    Judge(CheckConvolution(recording.samples, response, filtered,
                           [&](size_t done, size_t all) { checking.Report(done, all); }));

    example::WriteWav(command_line.wav, filtered, recording.sample_rate);
    std::cout << "written    " << command_line.wav.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    return example::RunProgram("convolve", [&] {
        const auto command_line = ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0));
        if (command_line) {
            Filter(*command_line);
        } else {
            std::cout << kUsage;
        }
    });
}
