#include "quantiser.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mdct_codec {
namespace {

constexpr int kStepsPerOctave = 4;

double LargestLevel(int bits) {
    return std::exp2(bits - 1) - 1;
}

double ScaleOf(std::int8_t step) {
    return std::exp2(static_cast<double>(step) / kStepsPerOctave);
}

/** The smallest scale that is not below the peak, as far as there is one. */
std::int8_t StepFor(double peak) {
    using Limits = std::numeric_limits<std::int8_t>;
    if (peak == 0) return Limits::min();
    const double step = std::ceil(kStepsPerOctave * std::log2(peak));
    return static_cast<std::int8_t>(std::clamp<double>(step, Limits::min(), Limits::max()));
}

}  // namespace

CodedFrame Quantise(const Coefficients& coefficients, int bits) {
    CodedFrame frame;
    for (size_t group = 0; group < kGroups; ++group) {
        const size_t first = group * kGroupSize;
        double peak = 0;
        for (size_t i = first; i < first + kGroupSize; ++i)
            peak = std::max(peak, std::abs(static_cast<double>(coefficients[i])));
        frame.scales[group] = StepFor(peak);
        const double largest = LargestLevel(bits);
        const double factor = largest / ScaleOf(frame.scales[group]);
        for (size_t i = first; i < first + kGroupSize; ++i) {
            // A peak beyond the largest scale is cut off.
            const double level = std::clamp(coefficients[i] * factor, -largest, largest);
            frame.levels[i] = static_cast<std::int16_t>(std::lround(level));
        }
    }
    return frame;
}

Coefficients Dequantise(const CodedFrame& frame, int bits) {
    Coefficients coefficients;
    for (size_t i = 0; i < kBands; ++i) {
        const double step = ScaleOf(frame.scales[i / kGroupSize]) / LargestLevel(bits);
        coefficients[i] = static_cast<float>(frame.levels[i] * step);
    }
    return coefficients;
}

size_t FrameBits(int bits) {
    return kGroups * 8 + kBands * static_cast<size_t>(bits);
}

}  // namespace mdct_codec
