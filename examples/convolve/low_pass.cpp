#include "low_pass.hpp"

#include <cmath>
#include <numbers>
#include <numeric>

namespace convolve {

std::vector<float> LowPass(double cutoff, double sample_rate, size_t taps) {
    using std::numbers::pi;
    const double per_sample = cutoff / sample_rate;
    const double middle = static_cast<double>(taps - 1) / 2;
    std::vector<double> response(taps);
    for (size_t n = 0; n < taps; ++n) {
        const double t = static_cast<double>(n) - middle;
        const double ideal = t == 0 ? 2 * per_sample : std::sin(2 * pi * per_sample * t) / (pi * t);
        const double window = taps == 1 ? 1 : 0.54 + 0.46 * std::cos(pi * t / middle);
        response[n] = ideal * window;
    }
    const double sum = std::accumulate(response.begin(), response.end(), 0.0);
    std::vector<float> rounded(taps);
    for (size_t n = 0; n < taps; ++n) rounded[n] = static_cast<float>(response[n] / sum);
    return rounded;
}

}  // namespace convolve
