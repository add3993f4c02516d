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
#include "lapped_transform.hpp"
#include "quality.hpp"
#include "quantiser.hpp"
#include "spectrum_plot.hpp"

namespace {

using namespace mdct_codec;

/** Bits of a sample that the compression is counted from. */
constexpr double kSampleBits = 16;

std::string Scientific(double value) {
    std::ostringstream text;
    text << std::scientific << std::setprecision(2) << value;
    return text.str();
}

void PrintRecording(const CommandLine& command_line, const example::Recording& recording,
                    size_t frames) {
    std::cout << "recording        " << command_line.recording.string() << ", "
              << recording.sample_rate << " Hz, " << recording.channels
              << (recording.channels == 1 ? " channel, " : " channels, averaged, ")
              << recording.duration() << " s\n"
              << "transform        " << frames << " frames of " << 2 * kBands << " samples, "
              << kBands << " coefficients each\n"
              << std::flush;
}

void PrintCompression(size_t samples, size_t frames, int bits) {
    const double coded = static_cast<double>(frames * FrameBits(bits));
    const double plain = static_cast<double>(samples) * kSampleBits;
    std::cout << "coded            " << bits << " bits a coefficient and " << kGroups
              << " scales a frame: " << static_cast<long long>((coded + 7) / 8)
              << " bytes\ncompression      " << std::fixed << std::setprecision(2) << plain / coded
              << " (samples of 16 bits: 1)\n";
}

void Judge(const Quality& quality) {
    const std::string text = Scientific(quality.largest_difference) + " (bound " +
                             Scientific(quality.rounding_bound) + ", full scale 1)";
    std::cout << "largest difference from the recording  " << text << '\n';
    if (!quality.IsRoundingAlone()) {
        throw example::Error(example::ExitCode::kFailed,
                             "the result is wrong: it differs from the recording by " + text +
                                 ".\nNothing was written.");
    }
}

void Run(const CommandLine& command_line) {
    const example::Recording recording = example::ReadRecording(command_line.recording);
    LappedTransform transform;
    example::Progress analysing(stderr, "frames analysed");
    const std::vector<Coefficients> original = transform.Analyse(
        recording.samples, [&](size_t done, size_t all) { analysing.Report(done, all); });
    PrintRecording(command_line, recording, original.size());

    std::vector<Coefficients> decoded = original;
    if (command_line.bits) {
        for (Coefficients& frame : decoded)
            frame = Dequantise(Quantise(frame, *command_line.bits), *command_line.bits);
        PrintCompression(recording.samples.size(), original.size(), *command_line.bits);
    }
    example::Progress synthesising(stderr, "frames synthesised");
    const std::vector<float> samples =
        transform.Synthesise(decoded, recording.samples.size(),
                             [&](size_t done, size_t all) { synthesising.Report(done, all); });

    const Quality quality = Compare(recording.samples, samples);
    std::cout << "signal to noise  " << std::fixed << std::setprecision(1)
              << quality.signal_to_noise << " dB\n";
    if (!command_line.bits) Judge(quality);

    example::WriteWav(command_line.wav, samples, recording.sample_rate);
    const example::PlotFiles files = example::PlotFilesFor(command_line.png());
    PlotSpectra(files, "Spectra of " + command_line.recording.filename().string(), original,
                decoded, recording.sample_rate);
    std::cout << "written          " << command_line.wav.string() << "\n                 "
              << files.png.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    return example::RunProgram("mdct_codec", [&] {
        const auto command_line = ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0));
        if (command_line) {
            Run(*command_line);
        } else {
            std::cout << kUsage;
        }
    });
}
