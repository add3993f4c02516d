#include "short_time_spectrum.hpp"

#include <qsvgen.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <stdexcept>

namespace spectrogram {
namespace {

using Window = std::array<float, kFrameLength>;

Window HannWindow() {
    Window window{};
    for (size_t n = 0; n < kFrameLength; ++n) {
        const double turn = static_cast<double>(n) / kFrameLength;
        window[n] = static_cast<float>(0.5 - 0.5 * std::cos(2 * std::numbers::pi * turn));
    }
    return window;
}

size_t FrameCount(size_t samples) {
    return samples <= kFrameLength ? 1 : 1 + (samples - kFrameLength + kHop - 1) / kHop;
}

}  // namespace

std::vector<PowerSpectrum> ShortTimeSpectrum(std::span<const float> samples,
                                             const example::ProgressCallback& progress) {
    const Window window = HannWindow();
    const double window_sum = std::accumulate(window.begin(), window.end(), 0.0);

    std::array<Real32, kFrameLength> frame{};
    std::array<Real32, 2 * kBins> spectrum{};  // real part, imaginary part, bin by bin

    std::vector<PowerSpectrum> spectra(FrameCount(samples.size()));
    for (size_t index = 0; index < spectra.size(); ++index) {
        const size_t start = index * kHop;
        for (size_t n = 0; n < kFrameLength; ++n) {
            const float sample = start + n < samples.size() ? samples[start + n] : 0.0F;
            frame[n] = sample * window[n];
        }
        if (qsvgDFTFwd_RToCCS_64_32f(frame.data(), spectrum.data(), qsvScaleNone) != qsvStatusOk) {
            throw std::logic_error("the transform refused valid arguments");
        }
        for (size_t k = 0; k < kBins; ++k) {
            // A real signal has the other half of the amplitude at the negative frequency.
            const double sides = (k == 0 || k == kFrameLength / 2) ? 1 : 2;
            const double amplitude = std::hypot(static_cast<double>(spectrum[2 * k]),
                                                static_cast<double>(spectrum[2 * k + 1]));
            spectra[index][k] = std::pow(sides * amplitude / window_sum, 2);
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
