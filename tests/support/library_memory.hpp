#pragma once

/**
 * @file
 * @brief What the library asks the allocator for, counted: a program with this in it takes the
 * calls of the library, and can refuse them or hand out blocks that end before a forbidden page.
 */

#include <cstdint>
#include <memory>
#include <vector>

#include "support/guarded_page.hpp"

namespace qsvgen_test {

struct LibraryMemory {
    bool refuses = false;
    bool is_guarded = false;
    std::vector<std::int32_t> sizes;  ///< asked for
    std::vector<void*> blocks;        ///< handed out
    std::vector<void*> freed;
    std::unique_ptr<GuardedPage> pages;  ///< of the last guarded block
};

LibraryMemory& library_memory();

}  // namespace qsvgen_test
