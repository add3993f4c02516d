#include "wav_writer.hpp"

#include <sndfile.h>

#include <string>
#include <system_error>

#include "error.hpp"

namespace example {

void WriteWav(const std::filesystem::path& path, std::span<const float> samples, int sample_rate) {
    const auto fail = [&](const std::string& why) {
        throw Error(ExitCode::kFailed, "cannot write '" + path.string() + "': " + why +
                                           "\nName a writable place by -o, with room on its disk.");
    };
    std::error_code error;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), error);
    if (error) fail(error.message());

    SF_INFO info = {};
    info.samplerate = sample_rate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (file == nullptr) fail(sf_strerror(nullptr));
    const auto count = static_cast<sf_count_t>(samples.size());
    const bool written = sf_writef_float(file, samples.data(), count) == count;
    const std::string why = sf_strerror(file);
    // Closing completes the header, so it may fail as well.
    const int closed = sf_close(file);
    if (!written) fail(why);
    if (closed != 0) fail(sf_error_number(closed));
}

}  // namespace example
