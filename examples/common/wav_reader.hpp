#pragma once

#include <filesystem>
#include <vector>

namespace example {

struct Recording {
    std::vector<float> samples;  ///< mono; full scale is 1
    int sample_rate = 0;         ///< Hz
    int channels = 0;            ///< of the file, before they were averaged

    double duration() const { return static_cast<double>(samples.size()) / sample_rate; }
};

/** Reads a sound file, averaging its channels. Throws Error where it holds no usable samples. */
Recording ReadRecording(const std::filesystem::path& path);

}  // namespace example
