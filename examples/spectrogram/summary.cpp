#include "summary.hpp"

#include <algorithm>
#include <iomanip>
#include <numeric>
#include <ostream>

namespace spectrogram {

void PrintSummary(std::ostream& out, const example::Recording& recording,
                  std::span<const PowerSpectrum> spectra, const TransformTimes& times) {
    constexpr size_t kStrongest = 5;
    constexpr double kMicroseconds = 1e6;
    const PowerSpectrum mean = MeanPower(spectra);
    std::array<size_t, kBins> by_power{};
    std::iota(by_power.begin(), by_power.end(), 0U);
    std::sort(by_power.begin(), by_power.end(),
              [&](size_t a, size_t b) { return mean[a] > mean[b]; });

    out << std::fixed << std::setprecision(3);
    out << "frames       " << spectra.size() << " of " << kFrameLength << " samples, hop " << kHop
        << '\n'
        << "sample rate  " << recording.sample_rate << " Hz, " << recording.channels
        << (recording.channels == 1 ? " channel\n" : " channels, averaged\n") << "duration     "
        << recording.duration() << " s\n"
        << std::setprecision(1) << "transforms   " << times.at_once * kMicroseconds
        << " us by one call, " << times.one_by_one * kMicroseconds
        << " us by a call for each frame: " << times.one_by_one / times.at_once
        << " times as long\n"
        << "strongest bins, mean over all frames:\n";
    for (const size_t k : std::span(by_power).first(kStrongest)) {
        const double frequency = static_cast<double>(k) * recording.sample_rate / kFrameLength;
        out << "  bin " << std::setw(2) << k << std::setprecision(1) << std::setw(10) << frequency
            << " Hz" << std::setw(9) << Decibels(mean[k]) << " dB\n";
    }
}

}  // namespace spectrogram
