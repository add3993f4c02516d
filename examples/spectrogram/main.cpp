#include <cstdio>
#include <iostream>

#include "command_line.hpp"
#include "common/progress.hpp"
#include "common/run_program.hpp"
#include "common/wav_reader.hpp"
#include "plot.hpp"
#include "short_time_spectrum.hpp"
#include "summary.hpp"
#include "transform_times.hpp"

namespace {

using namespace spectrogram;

void DrawSpectrogram(const CommandLine& command_line) {
    const example::Recording recording = example::ReadRecording(command_line.recording);
    example::Progress progress(stderr, "frames");
    const Frames frames(recording.samples);
    const std::vector<PowerSpectrum> spectra =
        ShortTimeSpectrum(frames, [&](size_t done, size_t all) { progress.Report(done, all); });
    PrintSummary(std::cout, recording, spectra, MeasureTransforms(frames));

    const example::PlotFiles files = example::PlotFilesFor(command_line.png);
    Plot(files, "Spectrogram of " + command_line.recording.filename().string(), spectra,
         recording.sample_rate);
    std::cout << "picture      " << files.png.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    return example::RunProgram("spectrogram", [&] {
        const auto command_line = ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0));
        if (command_line) {
            DrawSpectrogram(*command_line);
        } else {
            std::cout << kUsage;
        }
    });
}
