#include "quality.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "lapped_transform.hpp"

namespace mdct_codec {
namespace {

double LoudestFrame(std::span<const float> samples) {
    constexpr size_t kFrame = 2 * kBands;
    double loudest = 0;
    for (size_t start = 0; start < samples.size(); start += kBands) {
        double energy = 0;
        for (size_t i = start; i < std::min(start + kFrame, samples.size()); ++i)
            energy += static_cast<double>(samples[i]) * samples[i];
        loudest = std::max(loudest, energy);
    }
    return std::sqrt(loudest);
}

}  // namespace

Quality Compare(std::span<const float> original, std::span<const float> decoded) {
    constexpr double kRounding = std::numeric_limits<float>::epsilon() / 2;
    const double stages = std::log2(static_cast<double>(kBands)) + 1;
    Quality quality;
    // Two frames meet in a sample. Below the normal numbers roundings are no longer relative.
    quality.rounding_bound = 2 * (2 * 3 * stages + 6) * kRounding * LoudestFrame(original) +
                             std::numeric_limits<float>::min();
    double signal = 0;
    double noise = 0;
    for (size_t i = 0; i < original.size(); ++i) {
        const double difference = static_cast<double>(decoded[i]) - original[i];
        signal += static_cast<double>(original[i]) * original[i];
        noise += difference * difference;
        // A maximum would pass over what is no number.
        quality.largest_difference =
            std::isnan(difference) ? std::numeric_limits<double>::infinity()
                                   : std::max(quality.largest_difference, std::abs(difference));
    }
    quality.signal_to_noise =
        noise == 0 ? std::numeric_limits<double>::infinity() : 10 * std::log10(signal / noise);
    return quality;
}

}  // namespace mdct_codec
