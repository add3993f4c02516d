#pragma once

/**
 * @file
 * @brief The state that floating-point arithmetic depends on and leaves behind, set for a while.
 *
 * A ControlState is rounding, what becomes of denormals, and all else that a program may choose
 * (kControlMask), and the exception flags that have been raised (kExceptionFlags).
 */

#ifdef __aarch64__
#include "support/control_state_of_aarch64.hpp"
#else
#include "support/control_state_of_x86.hpp"
#endif

namespace qsvgen_test {

class ScopedControlState {
  public:
    explicit ScopedControlState(ControlState value) : old_(control_state()) {
        set_control_state(value);
    }
    ~ScopedControlState() { set_control_state(old_); }
    ScopedControlState(const ScopedControlState&) = delete;
    ScopedControlState& operator=(const ScopedControlState&) = delete;

  private:
    ControlState old_;
};

/** Exception flags that a call raises. */
template <class Call>
ControlState raised_by(const Call& call) {
    const ScopedControlState without_flags(control_state() & ~kExceptionFlags);
    call();
    return control_state() & kExceptionFlags;
}

}  // namespace qsvgen_test
