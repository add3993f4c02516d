#include "frames.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace spectrogram {
namespace {

size_t FrameCount(size_t samples) {
    return samples <= kFrameLength ? 1 : 1 + (samples - kFrameLength + kHop - 1) / kHop;
}

void Check(QsvStatus status) {
    if (status != qsvStatusOk) throw std::logic_error("the transform refused valid arguments");
}

}  // namespace

Frames::Frames(std::span<const float> recording)
    : count_(FrameCount(recording.size())), samples_((count_ - 1) * kHop + kFrameLength) {
    if (count_ > size_t{std::numeric_limits<int32_t>::max()})
        throw std::length_error("the recording has more frames than a call takes");
    std::copy(recording.begin(), recording.end(), samples_.begin());
}

void Frames::TransformAtOnce(std::span<Transform> transforms) const {
    Check(qsvgBatchDFTFwd_RToCCS_32f(samples_.data(), 1, kHop, transforms.front().data(), 1,
                                     std::tuple_size_v<Transform>, kFrameLength,
                                     static_cast<int32_t>(count_), qsvScaleNone));
}

void Frames::TransformOneByOne(std::span<Transform> transforms) const {
    for (size_t k = 0; k < count_; ++k) {
        Check(qsvgDFTFwd_RToCCS_64_32f(samples_.data() + k * kHop, transforms[k].data(),
                                       qsvScaleNone));
    }
}

}  // namespace spectrogram
