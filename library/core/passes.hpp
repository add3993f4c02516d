#pragma once

/** @file @brief What kernels need that pass over memory several times: loops and a work buffer. */

#include <cstdint>

#include "platform/qsvcore.h"

// Unrolled, the long bodies would no longer fit the decoded-instruction cache, and there is
// nothing to win: each of them is some dozens of vectors.
#ifdef __clang__
#define QSVG_WRITTEN_OUT_ONCE _Pragma("clang loop unroll(disable)")
#else
#define QSVG_WRITTEN_OUT_ONCE _Pragma("GCC unroll 1")
#endif

/** The following statement for `name` = 0, step, 2 step, ... below `end`. */
// NOLINTBEGIN(bugprone-macro-parentheses): a name that is declared stands in none.
#define QSVG_FOR_EACH_BLOCK(name, end, step) \
    QSVG_WRITTEN_OUT_ONCE for (int name = 0; name < (end); name += (step))
// NOLINTEND(bugprone-macro-parentheses)

namespace core {

/** The caller's work buffer, or where that is null a block of the same size for this call. */
template <class Real>
class WorkBuffer {
  public:
    // Whether there is a block is not tested: no status could tell it.
    WorkBuffer(std::uint8_t* buffer, std::int32_t size)
        : own_(buffer == nullptr),
          begin_(static_cast<Real*>(own_ ? qsvMalloc(size) : static_cast<void*>(buffer))) {}
    ~WorkBuffer() {
        if (own_) qsvFree(begin_);
    }
    WorkBuffer(const WorkBuffer&) = delete;
    WorkBuffer& operator=(const WorkBuffer&) = delete;

    Real* begin() const { return begin_; }

  private:
    bool own_;
    Real* begin_;
};

}  // namespace core
