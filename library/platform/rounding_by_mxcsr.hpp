#pragma once

/** @file @brief RoundingToNearest of rounding_to_nearest.hpp, on x86. */

#include <xmmintrin.h>

namespace platform {

class RoundingToNearest {
  public:
    RoundingToNearest() : caller_(_mm_getcsr()) { _mm_setcsr((caller_ & kFlags) | kAllMasked); }
    ~RoundingToNearest() { _mm_setcsr((caller_ & ~kFlags) | (_mm_getcsr() & kFlags)); }
    RoundingToNearest(const RoundingToNearest&) = delete;
    RoundingToNearest& operator=(const RoundingToNearest&) = delete;

  private:
    static constexpr unsigned kFlags = _MM_EXCEPT_MASK;
    static constexpr unsigned kAllMasked = _MM_MASK_MASK;

    unsigned caller_;
};

}  // namespace platform
