#include "short_time_spectrum.hpp"

#include <algorithm>
#include <cmath>
#include <complex>

namespace spectrogram {
namespace {

std::complex<double> BinOf(const Transform& transform, size_t k) {
    return {transform[2 * k], transform[2 * k + 1]};
}

/** A bin of the frame times Hann's window, 1/2 - 1/2 cos(2 pi n / N): half the bin less a quarter
 * of each neighbour. Windowed samples would be other ones in each of the frames that share them, so
 * that these could not overlap in memory. */
std::complex<double> WindowedBin(const Transform& transform, size_t k) {
    // A real signal has conjugate bins beyond both ends.
    const auto below = k > 0 ? BinOf(transform, k - 1) : std::conj(BinOf(transform, 1));
    const auto above =
        k < kBins - 1 ? BinOf(transform, k + 1) : std::conj(BinOf(transform, kBins - 2));
    return 0.5 * BinOf(transform, k) - 0.25 * (below + above);
}

}  // namespace

std::vector<PowerSpectrum> ShortTimeSpectrum(const Frames& frames,
                                             const example::ProgressCallback& progress) {
    constexpr double kWindowSum = kFrameLength / 2.0;
    std::vector<Transform> transforms(frames.count());
    frames.TransformAtOnce(transforms);

    std::vector<PowerSpectrum> spectra(frames.count());
    for (size_t index = 0; index < spectra.size(); ++index) {
        for (size_t k = 0; k < kBins; ++k) {
            // A real signal has the other half of the amplitude at the negative frequency.
            const double sides = (k == 0 || k == kFrameLength / 2) ? 1 : 2;
            const double amplitude = std::abs(WindowedBin(transforms[index], k));
            spectra[index][k] = std::pow(sides * amplitude / kWindowSum, 2);
        }
        progress(index + 1, spectra.size());
    }
    return spectra;
}

PowerSpectrum MeanPower(std::span<const PowerSpectrum> frames) {
    PowerSpectrum mean{};
    for (const PowerSpectrum& frame : frames) {
        for (size_t k = 0; k < kBins; ++k) mean[k] += frame[k];
    }
    for (double& power : mean) power /= static_cast<double>(frames.size());
    return mean;
}

double Decibels(double power) {
    constexpr double kSilence = 1e-12;  // keeps digital silence on the scale
    return 10 * std::log10(std::max(power, kSilence));
}

}  // namespace spectrogram
