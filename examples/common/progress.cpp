#include "progress.hpp"

#include <unistd.h>

#include <cstdint>
#include <utility>

namespace example {

Progress::Progress(std::FILE* stream, std::string steps)
    : stream_(stream), steps_(std::move(steps)), rewrites_(isatty(fileno(stream)) == 1) {}

void Progress::Report(size_t done, size_t all) {
    const size_t step = rewrites_ ? 1 : 50;
    // In 64 bits, for done times 100 would wrap on a recording of hours.
    const auto percent = static_cast<size_t>(uint64_t{done} * 100 / all);
    if (percent < shown_percent_ + step) return;
    shown_percent_ = percent;
    std::fprintf(stream_, "%s%zu of %zu %s (%zu %%)%s", rewrites_ ? "\r" : "", done, all,
                 steps_.c_str(), percent, rewrites_ && done < all ? "" : "\n");
    std::fflush(stream_);
}

}  // namespace example
