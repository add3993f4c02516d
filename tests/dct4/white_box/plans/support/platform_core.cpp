#include "support/platform_core.hpp"

#include <cstdlib>

namespace qsvgen_test {

PlatformCore& platform_core() {
    static PlatformCore core;
    return core;
}

}  // namespace qsvgen_test

// What is freed stays in place until the program ends, so that a test may look at it.
extern "C" {

[[gnu::visibility("default")]] void* qsvMalloc(std::int32_t size) {
    auto& core = qsvgen_test::platform_core();
    core.sizes.push_back(size);
    void* block = core.only_block;
    if (block == nullptr && !core.refuses &&
        posix_memalign(&block, 16, static_cast<std::size_t>(size)) != 0)
        block = nullptr;
    core.blocks.push_back(block);
    return block;
}

[[gnu::visibility("default")]] void qsvFree(void* block) {
    auto& core = qsvgen_test::platform_core();
    core.freed.push_back(block);
    core.heads.push_back(block == nullptr ? 0 : *static_cast<const std::uintptr_t*>(block));
}
}
