#include "support/library_memory.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

extern "C" {
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace qsvgen_test {
namespace {

void* take(std::size_t size) {
    LibraryMemory& memory = library_memory();
    void* block = nullptr;
    if (!memory.refuses && memory.is_guarded) {
        memory.pages = std::make_unique<GuardedPage>(size);
        block = memory.pages->end() - size;
    } else if (!memory.refuses) {
        block = __libc_memalign(16, size);
    }
    memory.sizes.push_back(static_cast<std::int32_t>(size));
    memory.blocks.push_back(block);
    return block;
}

void give_back(void* block) {
    LibraryMemory& memory = library_memory();
    memory.freed.push_back(block);
    if (memory.is_guarded)
        memory.pages.reset();
    else
        __libc_free(block);
}

}  // namespace

LibraryMemory& library_memory() {
    static LibraryMemory memory;
    return memory;
}

}  // namespace qsvgen_test

// The program's own definitions go before those of the libraries.
extern "C" {

#if defined(__i386__)

[[gnu::visibility("default")]] void* qsvMalloc(std::int32_t size) {
    return qsvgen_test::take(static_cast<std::size_t>(size));
}

[[gnu::visibility("default")]] void qsvFree(void* block) {
    qsvgen_test::give_back(block);
}

#else

// Nobody else in these programs asks for aligned blocks; of what is freed those blocks are the
// library's.
[[gnu::visibility("default")]] int posix_memalign(void** block, std::size_t /*alignment*/,
                                                  std::size_t size) {
    *block = qsvgen_test::take(size);
    return *block == nullptr ? ENOMEM : 0;
}

[[gnu::visibility("default")]] void free(void* block) {
    const auto& blocks = qsvgen_test::library_memory().blocks;
    if (block != nullptr && std::find(blocks.begin(), blocks.end(), block) != blocks.end())
        qsvgen_test::give_back(block);
    else
        __libc_free(block);
}

#endif
}
