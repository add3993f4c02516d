#include "plot.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "common/error.hpp"

namespace spectrogram {
namespace {

using example::Error;
using example::ExitCode;

// About what the picture has pixels for: gnuplot would take minutes over each frame of a song.
constexpr size_t kMaxColumns = 1200;

std::ofstream OpenForWriting(const std::filesystem::path& path) {
    std::ofstream stream(path);
    if (!stream) {
        throw Error(ExitCode::kFailed, "cannot write '" + path.string() + "': " +
                                           std::strerror(errno) + "\nName a writable place by -o.");
    }
    return stream;
}

void CloseChecked(std::ofstream& stream, const std::filesystem::path& path) {
    stream.close();
    if (!stream) {
        throw Error(ExitCode::kFailed,
                    "cannot finish '" + path.string() + "'.\nIs there room on the disk?");
    }
}

/** Gnuplot's single quotes take everything literally but the quote itself. */
std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

/** Writes the columns and gives back the highest level, to which the colours are fitted. */
double WriteData(const std::filesystem::path& path, std::span<const PowerSpectrum> spectra,
                 int sample_rate) {
    const size_t frames_per_column = (spectra.size() + kMaxColumns - 1) / kMaxColumns;
    double peak = Decibels(0);
    std::ofstream data = OpenForWriting(path);
    data << "# time_s frequency_hz level_db\n";
    for (size_t first = 0; first < spectra.size(); first += frames_per_column) {
        const size_t count = std::min(frames_per_column, spectra.size() - first);
        const PowerSpectrum column = MeanPower(spectra.subspan(first, count));
        const double middle = (static_cast<double>(first) + static_cast<double>(count - 1) / 2) *
                                  static_cast<double>(kHop) +
                              static_cast<double>(kFrameLength) / 2;
        for (size_t k = 0; k < kBins; ++k) {
            const double level = Decibels(column[k]);
            peak = std::max(peak, level);
            data << middle / sample_rate << ' '
                 << static_cast<double>(k) * sample_rate / kFrameLength << ' ' << level << '\n';
        }
        data << '\n';
    }
    CloseChecked(data, path);
    return peak;
}

void WriteScript(const PlotFiles& files, const std::string& title, double peak, double duration,
                 int sample_rate) {
    constexpr double kDynamicRange = 80;
    std::ofstream script = OpenForWriting(files.script);
    script << "set terminal pngcairo size 1200,640 font 'sans,13'\n"
           << "set output " << Quoted(files.png.string()) << "\n"
           << "set title " << Quoted(title) << " noenhanced\n"
           << "set xlabel 'time (s)'\n"
           << "set ylabel 'frequency (Hz)'\n"
           << "set cblabel 'level (dB, sine of full scale = 0)' offset 1.2,0\n"
           << "set xrange [0:" << duration << "]\n"
           << "set yrange [0:" << sample_rate / 2.0 << "]\n"
           << "set cbrange [" << peak - kDynamicRange << ":" << peak << "]\n"
           << "set palette defined (0 '#000004', 1 '#57106e', 2 '#bc3754', 3 '#f98e09', "
              "4 '#fcffa4')\n"
           << "set tics out\n"
           << "unset key\n"
           << "plot " << Quoted(files.data.string()) << " using 1:2:3 with image\n";
    CloseChecked(script, files.script);
}

void RunGnuplot(const std::filesystem::path& script) {
    std::string program = "gnuplot";
    std::string argument = script.string();
    const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0) {
        throw Error(ExitCode::kFailed,
                    std::string("cannot start gnuplot: ") + std::strerror(error) +
                        "\nInstall it (scripts/bootstrap does), then run this again.");
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw Error(ExitCode::kFailed,
                    "gnuplot failed; its own message stands above.\nTry 'gnuplot " + argument +
                        "' by hand.");
    }
}

}  // namespace

PlotFiles PlotFilesFor(const std::filesystem::path& png) {
    PlotFiles files{.png = png, .data = png, .script = png};
    files.data.replace_extension(".dat");
    files.script.replace_extension(".gp");
    return files;
}

void Plot(const PlotFiles& files, const std::string& title, std::span<const PowerSpectrum> spectra,
          int sample_rate) {
    const double duration =
        static_cast<double>((spectra.size() - 1) * kHop + kFrameLength) / sample_rate;
    const double peak = WriteData(files.data, spectra, sample_rate);
    WriteScript(files, title, peak, duration, sample_rate);
    RunGnuplot(files.script);
}

}  // namespace spectrogram
