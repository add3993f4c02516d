#pragma once

/** @file @brief Where transforms and their elements stand in memory. */

#include <cstddef>
#include <type_traits>

#include "qsvgen.h"

namespace batch {

/** Of which an element is made: itself, or its two parts. */
template <class Element>
using NumberOf =
    std::conditional_t<std::is_same_v<std::remove_const_t<Element>, Complex32>, Real32,
                       std::conditional_t<std::is_same_v<std::remove_const_t<Element>, Complex64>,
                                          Real64, std::remove_const_t<Element>>>;

template <class Element>
inline constexpr int kParts = static_cast<int>(sizeof(Element) / sizeof(NumberOf<Element>));

/** Element j of transform k is base[j * stride + k * distance]. */
template <class Element>
struct Placement {
    Element* base;
    std::ptrdiff_t stride;
    std::ptrdiff_t distance;
    int elements;

    Placement from(std::ptrdiff_t transform) const {
        return {base + transform * distance, stride, distance, elements};
    }
    /** Whether the elements of one transform follow one another. */
    bool is_contiguous() const { return stride == 1; }
    /** Whether equal elements of neighbouring transforms do. */
    bool has_columns() const { return distance == 1; }
};

}  // namespace batch
