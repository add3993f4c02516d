#pragma once

/** @file @brief A platform core library that counts, and can refuse. */

#include <cstdint>
#include <vector>

namespace qsvgen_test {

struct PlatformCore {
    bool refuses = false;
    void* only_block = nullptr;       ///< handed out whatever size is asked for
    std::vector<std::int32_t> sizes;  ///< asked for
    std::vector<void*> blocks;        ///< handed out
    std::vector<void*> freed;
    std::vector<std::uintptr_t> heads;  ///< first words of these when they were freed
};

PlatformCore& platform_core();

}  // namespace qsvgen_test
