#pragma once

/**
 * @file
 * @brief The bump allocator inside a plan's buffer: blocks on 32-byte boundaries, without headers,
 * without an end.
 */

#include <cstdint>

/** First word of a buffer. Packed, since a buffer may begin at any address. */
struct [[gnu::packed]] Arena {
    std::uintptr_t bump; /**< address of the next free byte */
};

extern "C" {

/** `size` rounded up to a multiple of 32, modulo 2^32. */
std::uint32_t qsvgAlignSize32Bytes(std::uint32_t size);

/** A block of at least `size` bytes. Cannot fail: that the buffer is long enough is for its owner.
 */
void* qsvgArenaMalloc(Arena* arena, std::uint32_t size);

/** Takes back as much as a block of `size` bytes took, whichever `block` it was. Blocks may go in
 * any order, since only the sum counts. */
void qsvgArenaFree(Arena* arena, const void* block, std::uint32_t size);
}
