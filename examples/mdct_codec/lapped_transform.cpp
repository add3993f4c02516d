#include "lapped_transform.hpp"

#include <cmath>
#include <numbers>
#include <stdexcept>

#include "common/error.hpp"

namespace mdct_codec {
namespace {

constexpr size_t kHalf = kBands / 2;

/** With the quarters a, b, c, d of a frame and r for "reversed": (-c_r - d, a - b_r). */
Coefficients Folded(const std::array<float, 2 * kBands>& frame) {
    Coefficients folded;
    for (size_t n = 0; n < kHalf; ++n) {
        folded[n] = -frame[3 * kHalf - 1 - n] - frame[3 * kHalf + n];
        folded[kHalf + n] = frame[n] - frame[2 * kHalf - 1 - n];
    }
    return folded;
}

/** (a - b_r, b - a_r, c + d_r, d + c_r) */
std::array<float, 2 * kBands> Unfolded(const Coefficients& folded) {
    std::array<float, 2 * kBands> frame;
    for (size_t n = 0; n < kHalf; ++n) {
        frame[n] = folded[kHalf + n];
        frame[kHalf + n] = -folded[2 * kHalf - 1 - n];
        frame[2 * kHalf + n] = -folded[kHalf - 1 - n];
        frame[3 * kHalf + n] = -folded[n];
    }
    return frame;
}

}  // namespace

LappedTransform::LappedTransform() {
    if (qsvgDCT4InitAlloc_32f(&plan_, kBands) != qsvStatusOk) {
        throw example::Error(example::ExitCode::kFailed, "there is no memory for the transform.");
    }
    for (size_t n = 0; n < kFrame; ++n) {
        window_[n] = static_cast<float>(
            std::sin(std::numbers::pi * (static_cast<double>(n) + 0.5) / kFrame));
    }
}

LappedTransform::~LappedTransform() {
    qsvgDCT4Free_32f(plan_);
}

Coefficients LappedTransform::Transform(const Coefficients& folded) {
    const float scale = std::sqrt(2.0F / kBands);
    Coefficients result{};
    if (qsvgDCT4_32f(folded.data(), result.data(), plan_) != qsvStatusOk) {
        throw std::logic_error("the transform refused valid arguments");
    }
    for (float& value : result) value *= scale;
    return result;
}

std::vector<Coefficients> LappedTransform::Analyse(std::span<const float> samples,
                                                   const example::ProgressCallback& progress) {
    const size_t frames = (samples.size() + kBands - 1) / kBands + 1;
    std::vector<Coefficients> result;
    for (size_t f = 0; f < frames; ++f) {
        std::array<float, kFrame> frame;
        for (size_t n = 0; n < kFrame; ++n) {
            // Silence stands before the first sample, too, for half a frame.
            const size_t place = f * kBands + n;
            const bool inside = place >= kBands && place - kBands < samples.size();
            frame[n] = inside ? window_[n] * samples[place - kBands] : 0.0F;
        }
        result.push_back(Transform(Folded(frame)));
        progress(f + 1, frames);
    }
    return result;
}

std::vector<float> LappedTransform::Synthesise(std::span<const Coefficients> frames, size_t size,
                                               const example::ProgressCallback& progress) {
    std::vector<float> samples(size);
    for (size_t f = 0; f < frames.size(); ++f) {
        const std::array<float, kFrame> frame = Unfolded(Transform(frames[f]));
        for (size_t n = 0; n < kFrame; ++n) {
            const size_t place = f * kBands + n;
            if (place >= kBands && place - kBands < size)
                samples[place - kBands] += window_[n] * frame[n];
        }
        progress(f + 1, frames.size());
    }
    return samples;
}

}  // namespace mdct_codec
