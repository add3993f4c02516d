#include "plan/arena.hpp"

extern "C" {

std::uint32_t qsvgAlignSize32Bytes(std::uint32_t size) {
    return (size + 31U) & ~31U;
}

void* qsvgArenaMalloc(Arena* arena, std::uint32_t size) {
    const std::uintptr_t block = arena->bump;
    arena->bump = block + qsvgAlignSize32Bytes(size);
    return reinterpret_cast<void*>(block);
}

void qsvgArenaFree(Arena* arena, const void* /*block*/, std::uint32_t size) {
    arena->bump -= qsvgAlignSize32Bytes(size);
}
}
