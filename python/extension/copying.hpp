#pragma once

/** @file @brief Copies of transforms between arrays of any strides, at any address. */

#include <cstddef>

namespace python {

/** Where the elements of some transforms stand; strides and distances in bytes. */
struct Place {
    char* first;
    ptrdiff_t stride;  ///< from an element to the next
    ptrdiff_t dist;    ///< from a transform to the next
};

/** What happens to elements on their way. Parts are those of complex elements: two planes of real
 * elements, of which the imaginary ones stand a stride behind the real ones, and the next real ones
 * two strides. */
enum class Change { kNone, kRealToComplex, kComplexToParts, kPartsToComplex };

/** Which loop is the inner one: best that along neighbours in the larger array. */
enum class Along { kElements, kTransforms };

/** Copies length elements of count transforms. item is the bytes of an element: of a real one where
 * real becomes complex, else of a whole one (4, 8 or 16). */
void copy(Change change, Along along, ptrdiff_t item, const Place& from, const Place& to,
          ptrdiff_t length, ptrdiff_t count);

/** Sets elements to zero. */
void clear(ptrdiff_t item, const Place& to, ptrdiff_t length, ptrdiff_t count);

}  // namespace python
