#include <cstdio>
#include <exception>
#include <iostream>

#include "command_line.hpp"
#include "error.hpp"
#include "plot.hpp"
#include "progress.hpp"
#include "short_time_spectrum.hpp"
#include "summary.hpp"
#include "wav_reader.hpp"

namespace {

using namespace spectrogram;

void Run(const CommandLine& command_line) {
    const Recording recording = ReadRecording(command_line.recording);
    Progress progress(stderr);
    const std::vector<PowerSpectrum> spectra = ShortTimeSpectrum(
        recording.samples, [&](size_t done, size_t all) { progress.Report(done, all); });
    PrintSummary(std::cout, recording, spectra);

    const PlotFiles files = PlotFilesFor(command_line.png);
    Plot(files, "Spectrogram of " + command_line.recording.filename().string(), spectra,
         recording.sample_rate);
    std::cout << "picture      " << files.png.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const auto command_line = ParseCommandLine(std::span(argv, argc).subspan(argc > 0 ? 1 : 0));
        if (!command_line) {
            std::cout << kUsage;
            return static_cast<int>(ExitCode::kOk);
        }
        Run(*command_line);
        return static_cast<int>(ExitCode::kOk);
    } catch (const Error& error) {
        std::cerr << "spectrogram: " << error.what() << '\n';
        return static_cast<int>(error.exit_code());
    } catch (const std::exception& error) {
        std::cerr << "spectrogram: " << error.what() << '\n';
        return static_cast<int>(ExitCode::kOutputFailed);
    }
}
