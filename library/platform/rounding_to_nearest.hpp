#pragma once

/** @file @brief Arithmetic whose bits are the library's affair, not that of the caller's modes. */

#ifdef __SSE2__
#include <xmmintrin.h>
#else
#error "The processor's rounding mode is set and given back here: tell how on this one"
#endif

namespace platform {

/**
 * For as long as it lives, sums and products round to nearest, denormals count, and no exception
 * traps. Then rounding, denormals and masks are the caller's again; flags that arithmetic has
 * raised in between stay raised, as without it.
 *
 * It must enclose the call of a function of another source: inside of one function a compiler moves
 * arithmetic past it.
 */
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
