#pragma once

/** @file @brief Turns a memory fault inside a call into an answer, so that a test can name it. */

#include <csetjmp>
#include <csignal>

namespace qsvgen_test {

class FaultCatcher {
  public:
    FaultCatcher();
    ~FaultCatcher();
    FaultCatcher(const FaultCatcher&) = delete;
    FaultCatcher& operator=(const FaultCatcher&) = delete;

    /** Whether `call` faulted. It must own nothing: a fault leaves it without unwinding. */
    template <class Call>
    bool faults(Call&& call) {
        if (sigsetjmp(landing(), 1) != 0) return true;
        call();
        return false;
    }

  private:
    static sigjmp_buf& landing();
    static void on_fault(int);

    struct sigaction old_segv_ = {};
    struct sigaction old_bus_ = {};
};

}  // namespace qsvgen_test
