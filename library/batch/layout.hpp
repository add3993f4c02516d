#pragma once

/** @file @brief Which elements of a half spectrum's array the places of a body stand for. */

namespace batch {

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
