#include "transform_times.hpp"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace spectrogram {
namespace {

constexpr int kPasses = 9;
/** A pass goes over the frames as often as makes it at least as many. */
constexpr size_t kFramesOfPass = 4096;

template <class Pass>
double SecondsOf(size_t repetitions, const Pass& pass) {
    const auto start = std::chrono::steady_clock::now();
    for (size_t i = 0; i < repetitions; ++i) pass();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / static_cast<double>(repetitions);
}

/** Of an overflow's NaN it is not promised which one it is. */
bool IsSame(Real32 a, Real32 b) {
    return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

bool AreSame(const Transform& a, const Transform& b) {
    return std::equal(a.begin(), a.end(), b.begin(), IsSame);
}

}  // namespace

TransformTimes MeasureTransforms(const Frames& frames) {
    const size_t repetitions = (kFramesOfPass + frames.count() - 1) / frames.count();
    std::vector<Transform> at_once(frames.count());
    std::vector<Transform> one_by_one(frames.count());
    constexpr double kNever = std::numeric_limits<double>::infinity();
    TransformTimes shortest{kNever, kNever};
    for (int pass = 0; pass < kPasses; ++pass) {
        shortest.at_once = std::min(
            shortest.at_once, SecondsOf(repetitions, [&] { frames.TransformAtOnce(at_once); }));
        shortest.one_by_one =
            std::min(shortest.one_by_one,
                     SecondsOf(repetitions, [&] { frames.TransformOneByOne(one_by_one); }));
    }
    if (!std::equal(at_once.begin(), at_once.end(), one_by_one.begin(), AreSame))
        throw std::logic_error("a transform of the batch is not that of a single call");
    return shortest;
}

}  // namespace spectrogram
