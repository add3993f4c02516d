#include "plot.hpp"

#include <algorithm>

namespace spectrogram {
namespace {

using example::CloseChecked;
using example::OpenForWriting;
using example::Quoted;

// About what the picture has pixels for: gnuplot would take minutes over each frame of a song.
constexpr size_t kMaxColumns = 1200;

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

void WriteScript(const example::PlotFiles& files, const std::string& title, double peak,
                 double duration, int sample_rate) {
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

}  // namespace

void Plot(const example::PlotFiles& files, const std::string& title,
          std::span<const PowerSpectrum> spectra, int sample_rate) {
    const double duration =
        static_cast<double>((spectra.size() - 1) * kHop + kFrameLength) / sample_rate;
    const double peak = WriteData(files.data, spectra, sample_rate);
    WriteScript(files, title, peak, duration, sample_rate);
    example::RunGnuplot(files.script);
}

}  // namespace spectrogram
