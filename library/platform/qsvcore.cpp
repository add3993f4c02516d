#include "qsvcore.h"

#include <cstddef>
#include <cstdlib>

extern "C" {
void* qsvMalloc(int32_t size) {
#ifdef QSVCORE_IS_INSIDE
    constexpr size_t kAlignment = 64;
#else
    constexpr size_t kAlignment = 16;
#endif
    // Callers compute sizes in signed arithmetic: a wrapped product must not become a huge request.
    if (size < 0) return nullptr;
    void* block = nullptr;
    // Not aligned_alloc, which may refuse sizes that are no multiple of the alignment.
    return posix_memalign(&block, kAlignment, static_cast<size_t>(size)) == 0 ? block : nullptr;
}

void qsvFree(void* block) {
    std::free(block);
}
}
