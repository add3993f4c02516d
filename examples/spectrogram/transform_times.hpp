#pragma once

#include "frames.hpp"

namespace spectrogram {

/** Of all frames of a recording, in seconds. */
struct TransformTimes {
    double at_once;
    double one_by_one;
};

/** Measures both ways, several passes each in turn, of which the shortest counts. Throws
 * std::logic_error where they do not give the same bits. */
TransformTimes MeasureTransforms(const Frames& frames);

}  // namespace spectrogram
