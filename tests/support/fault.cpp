#include "support/fault.hpp"

namespace qsvgen_test {

sigjmp_buf& FaultCatcher::landing() {
    static sigjmp_buf buffer;
    return buffer;
}

void FaultCatcher::on_fault(int) {
    siglongjmp(landing(), 1);
}

FaultCatcher::FaultCatcher() {
    struct sigaction action = {};
    action.sa_handler = on_fault;
    sigemptyset(&action.sa_mask);
    sigaction(SIGSEGV, &action, &old_segv_);
    sigaction(SIGBUS, &action, &old_bus_);
}

FaultCatcher::~FaultCatcher() {
    sigaction(SIGSEGV, &old_segv_, nullptr);
    sigaction(SIGBUS, &old_bus_, nullptr);
}

}  // namespace qsvgen_test
