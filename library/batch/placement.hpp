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

/** Places of a body, which for half spectra are those of Pack: R0 R1 I1 .. and for even N R[N/2].
 */
enum class Layout { Natural, CCS, Perm };

/** Elements of the array that `places` places stand for. */
inline int elements_of(Layout layout, int places) {
    if (layout != Layout::CCS) return places;
    return places + (places % 2 == 0 ? 2 : 1);
}

/** The element of the array that a place stands for. */
inline int element_of(Layout layout, int places, int place) {
    if (place == 0 || layout == Layout::Natural) return place;
    if (layout == Layout::CCS) return place + 1;
    if (places % 2 != 0) return place;
    return place == places - 1 ? 1 : place + 1;
}

/** Elements of CCS that are zeros: imaginary parts of bin 0 and, where there is one, of bin N/2. */
struct Zeros {
    int count;
    int elements[2];
};
inline Zeros zeros_of(Layout layout, int places) {
    if (layout != Layout::CCS) return {0, {}};
    return {places % 2 == 0 ? 2 : 1, {1, places + 1}};
}

}  // namespace batch
