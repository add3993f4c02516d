#pragma once

/**
 * @file
 * @brief What distinguishes the kernels of one length.
 */

#include <string>

namespace dft_complex {

enum class Direction { Forward, Inverse };

/** Type of the array elements. */
enum class Element { Complex32, Complex64 };

inline constexpr Direction kDirections[] = {Direction::Forward, Direction::Inverse};
inline constexpr Element kElements[] = {Element::Complex32, Element::Complex64};

/** "32fc", "64fc": how names of functions and files end. */
inline std::string suffix(Element element) {
    return element == Element::Complex32 ? "32fc" : "64fc";
}

}  // namespace dft_complex
