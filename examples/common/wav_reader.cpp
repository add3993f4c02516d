#include "wav_reader.hpp"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <span>

#include "error.hpp"

namespace example {
namespace {

struct CloseSoundFile {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

constexpr sf_count_t kFramesPerRead = 4096;

}  // namespace

Recording ReadRecording(const std::filesystem::path& path) {
    SF_INFO info = {};
    const std::unique_ptr<SNDFILE, CloseSoundFile> file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        throw Error(ExitCode::kBadInput,
                    "cannot read '" + path.string() + "': " + sf_strerror(nullptr) +
                        "\nCheck the path, and that it is a sound file (WAV, FLAC, AIFF, ...).");
    }

    Recording recording{.samples = {}, .sample_rate = info.samplerate, .channels = info.channels};
    const auto channels = static_cast<size_t>(info.channels);
    std::vector<float> interleaved(kFramesPerRead * channels);
    // Read to the end instead of trusting info.frames, which a truncated file overstates.
    while (const sf_count_t got = sf_readf_float(file.get(), interleaved.data(), kFramesPerRead)) {
        for (size_t frame = 0; frame < static_cast<size_t>(got); ++frame) {
            const std::span<const float> of_frame(&interleaved[frame * channels], channels);
            recording.samples.push_back(std::accumulate(of_frame.begin(), of_frame.end(), 0.0F) /
                                        static_cast<float>(channels));
        }
    }
    if (sf_error(file.get()) != SF_ERR_NO_ERROR) {
        throw Error(ExitCode::kBadInput, "cannot decode '" + path.string() +
                                             "': " + sf_strerror(file.get()) +
                                             "\nThe file seems damaged: try another copy of it.");
    }
    if (recording.samples.empty()) {
        throw Error(ExitCode::kBadInput,
                    "'" + path.string() + "' holds no samples.\nName a recording that does.");
    }
    if (!std::all_of(recording.samples.begin(), recording.samples.end(),
                     [](float sample) { return std::isfinite(sample); })) {
        throw Error(ExitCode::kBadInput, "'" + path.string() +
                                             "' holds samples that are not finite.\n"
                                             "The file seems damaged: try another copy of it.");
    }
    return recording;
}

}  // namespace example
