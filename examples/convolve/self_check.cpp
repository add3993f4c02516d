#include "self_check.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "overlap_add.hpp"

namespace convolve {
namespace {

double EuclideanNorm(std::span<const float> values) {
    double sum = 0;
    for (const double value : values) sum += value * value;
    return std::sqrt(sum);
}

double SumOfMagnitudes(std::span<const float> values) {
    double sum = 0;
    for (const double value : values) sum += std::abs(value);
    return sum;
}

double LoudestBlock(std::span<const float> samples, size_t block_length) {
    double loudest = 0;
    for (size_t start = 0; start < samples.size(); start += block_length) {
        const size_t count = std::min(block_length, samples.size() - start);
        loudest = std::max(loudest, EuclideanNorm(samples.subspan(start, count)));
    }
    return loudest;
}

double RoundingBound(std::span<const float> samples, std::span<const float> response) {
    constexpr double kRounding = std::numeric_limits<float>::epsilon() / 2;
    const double length = kTransformLength;
    const double of_transform = 2 * std::log2(length) * kRounding;
    const size_t block_length = BlockLength(response.size());
    const double blocks = std::ceil(length / static_cast<double>(block_length));
    const double sum_of_magnitudes = SumOfMagnitudes(response);
    const double norm = EuclideanNorm(response);
    const double per_block = (2 * of_transform + 3 * kRounding) * sum_of_magnitudes +
                             (of_transform * std::sqrt(length) + kRounding * blocks) * norm;
    // Below the normal numbers roundings are no longer relative.
    return blocks * LoudestBlock(samples, block_length) * per_block +
           std::numeric_limits<float>::min();
}

double DirectSample(std::span<const float> samples, std::span<const float> response, size_t n) {
    const size_t first = n < samples.size() ? 0 : n - samples.size() + 1;
    const size_t last = std::min(n, response.size() - 1);
    double sum = 0;
    for (size_t j = first; j <= last; ++j) {
        sum += static_cast<double>(response[j]) * static_cast<double>(samples[n - j]);
    }
    return sum;
}

}  // namespace

SelfCheck CheckConvolution(std::span<const float> samples, std::span<const float> response,
                           std::span<const float> filtered,
                           const example::ProgressCallback& progress) {
    constexpr size_t kSamplesPerReport = 1024;
    SelfCheck check{.largest_difference = 0, .bound = RoundingBound(samples, response)};
    for (size_t n = 0; n < filtered.size(); ++n) {
        const double direct = DirectSample(samples, response, n);
        const double difference = std::abs(static_cast<double>(filtered[n]) - direct);
        if (std::isnan(difference)) {
            // A maximum would pass over it.
            check.largest_difference = std::numeric_limits<double>::infinity();
        } else {
            check.largest_difference = std::max(check.largest_difference, difference);
        }
        if ((n + 1) % kSamplesPerReport == 0 || n + 1 == filtered.size()) {
            progress(n + 1, filtered.size());
        }
    }
    return check;
}

}  // namespace convolve
