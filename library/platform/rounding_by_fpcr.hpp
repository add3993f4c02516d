#pragma once

/** @file @brief RoundingToNearest of rounding_to_nearest.hpp, on AArch64, where flags stand in a
 * register of their own. */

#include <cstdint>

namespace platform {

class RoundingToNearest {
  public:
    RoundingToNearest() : caller_(control()) { set_control(kAsIeeeSays); }
    ~RoundingToNearest() { set_control(caller_); }
    RoundingToNearest(const RoundingToNearest&) = delete;
    RoundingToNearest& operator=(const RoundingToNearest&) = delete;

  private:
    static constexpr std::uint64_t kAsIeeeSays = 0;

    static std::uint64_t control() {
        std::uint64_t fpcr;
        asm volatile("mrs %0, fpcr" : "=r"(fpcr));
        return fpcr;
    }
    static void set_control(std::uint64_t fpcr) {
        asm volatile("msr fpcr, %0" : : "r"(fpcr) : "memory");
    }

    std::uint64_t caller_;
};

}  // namespace platform
