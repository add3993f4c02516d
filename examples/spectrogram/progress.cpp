#include "progress.hpp"

#include <unistd.h>

#include <cstdint>

namespace spectrogram {

Progress::Progress(std::FILE* stream) : stream_(stream), rewrites_(isatty(fileno(stream)) == 1) {}

void Progress::Report(size_t done, size_t all) {
    const size_t step = rewrites_ ? 1 : 50;
    // In 64 bits, for done times 100 would wrap on a recording of hours.
    const auto percent = static_cast<size_t>(uint64_t{done} * 100 / all);
    if (percent < shown_percent_ + step) return;
    shown_percent_ = percent;
    std::fprintf(stream_, "%s%zu of %zu frames (%zu %%)%s", rewrites_ ? "\r" : "", done, all,
                 percent, rewrites_ && done < all ? "" : "\n");
    std::fflush(stream_);
}

}  // namespace spectrogram
