#pragma once

/** @file @brief Filters a picture block by block, each by its two-dimensional spectrum. */

#include <cstddef>

#include "picture.hpp"
#include "response.hpp"

namespace image_filter {

/** What the transforms were called for. */
struct Work {
    size_t transforms = 0;
    size_t calls = 0;
};

struct Filtered {
    Picture picture;
    Work work;
};

/**
 * Filters red, green and blue, and leaves alone how opaque the pixels are.
 *
 * Blocks of length x length pixels lie side by side from the top left corner; those that the right
 * and the lower edge cut are filled up by the mirrored picture. Each is filtered as if it repeated
 * itself, so that where neighbours differ much seams may show.
 *
 * @param length of a block's side: even, and one of the transform's lengths
 */
Filtered FilterBlocks(const Picture& picture, Filter filter, size_t length);

}  // namespace image_filter
