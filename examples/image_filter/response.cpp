#include "response.hpp"

#include <algorithm>
#include <cmath>

namespace image_filter {
namespace {

/** Where the low-pass leaves half of the amplitude, in cycles a pixel. */
constexpr double kCutoff = 1.0 / 16;
/** By how much more than the low-pass leaves the finest structures are raised. */
constexpr double kAmount = 1.5;

/** Gaussian, the same in all directions: what it lets through has no echoes. */
double LowPass(double frequency) {
    return std::exp2(-std::pow(frequency / kCutoff, 2));
}

}  // namespace

std::vector<float> ResponseOf(Filter filter, size_t length) {
    std::vector<float> gains;
    for (size_t row = 0; row < length; ++row) {
        for (size_t column = 0; column <= length / 2; ++column) {
            // Bins above the middle are negative frequencies.
            const auto down = static_cast<double>(std::min(row, length - row));
            const auto across = static_cast<double>(column);
            const double low = LowPass(std::hypot(down, across) / static_cast<double>(length));
            const double gain = filter == Filter::kLowPass ? low : 1 + kAmount * (1 - low);
            gains.push_back(static_cast<float>(gain));
        }
    }
    return gains;
}

}  // namespace image_filter
