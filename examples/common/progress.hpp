#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>

namespace example {

/** Told how many steps out of how many are done. */
using ProgressCallback = std::function<void(size_t done, size_t all)>;

/** Says on a stream how far the work is: one line that rewrites itself, or a few lines in a log. */
class Progress {
  public:
    /** The steps are what is counted, such as "frames". */
    Progress(std::FILE* stream, std::string steps);

    void Report(size_t done, size_t all);

  private:
    std::FILE* stream_;
    std::string steps_;
    bool rewrites_;
    size_t shown_percent_ = 0;
};

}  // namespace example
