#pragma once

#include <cstddef>
#include <cstdio>

namespace spectrogram {

/** Says on a stream how far the work is: one line that rewrites itself, or a few lines in a log. */
class Progress {
  public:
    explicit Progress(std::FILE* stream);

    void Report(size_t done, size_t all);

  private:
    std::FILE* stream_;
    bool rewrites_;
    size_t shown_percent_ = 0;
};

}  // namespace spectrogram
