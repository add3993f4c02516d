#include "spectrum_plot.hpp"

#include <algorithm>
#include <cmath>

namespace mdct_codec {
namespace {

/** In dB over a coefficient of 1. */
double MeanLevel(std::span<const Coefficients> frames, size_t band) {
    constexpr double kSilence = 1e-15;
    double power = 0;
    for (const Coefficients& frame : frames)
        power += static_cast<double>(frame[band]) * frame[band];
    return 10 * std::log10(std::max(power / static_cast<double>(frames.size()), kSilence));
}

}  // namespace

void PlotSpectra(const example::PlotFiles& files, const std::string& title,
                 std::span<const Coefficients> original, std::span<const Coefficients> decoded,
                 int sample_rate) {
    std::ofstream data = example::OpenForWriting(files.data);
    data << "# frequency_hz original_db decoded_db\n";
    for (size_t band = 0; band < kBands; ++band) {
        data << (static_cast<double>(band) + 0.5) * sample_rate / (2.0 * kBands) << ' '
             << MeanLevel(original, band) << ' ' << MeanLevel(decoded, band) << '\n';
    }
    example::CloseChecked(data, files.data);

    const std::string file = example::Quoted(files.data.string());
    std::ofstream script = example::OpenForWriting(files.script);
    script << "set terminal pngcairo size 1200,640 font 'sans,13'\n"
           << "set output " << example::Quoted(files.png.string()) << "\n"
           << "set title " << example::Quoted(title) << " noenhanced\n"
           << "set xlabel 'frequency (Hz)'\n"
           << "set ylabel 'mean level of the coefficients (dB)'\n"
           << "set xrange [0:" << sample_rate / 2.0 << "]\n"
           << "set grid\n"
           << "plot " << file << " using 1:2 with lines lw 3 lc rgb '#9ecae1' title 'original', "
           << file << " using 1:3 with lines lw 1 lc rgb '#bc3754' title 'decoded'\n";
    example::CloseChecked(script, files.script);
    example::RunGnuplot(files.script);
}

}  // namespace mdct_codec
