#pragma once

/**
 * @file
 * @brief Complex elements between memory, where parts are interleaved, and Binary32x4 vectors.
 */

#include <vector>

#include "transforms/dft_complex/layouts/complex_algebra.hpp"

namespace dft_complex {

inline constexpr int kNoElement = -1;    ///< a lane whose content does not matter
inline constexpr int kZeroElement = -2;  ///< a lane that must hold zero

/** Elements of the source, one a lane; lanes past the end of `elements` do not matter. */
ComplexVector load_elements(Graph& graph, Layout layout, std::vector<int> elements, bool backward);

struct StoredVector {
    ComplexVector vector;
    Layout layout = Layout::Split;
    std::vector<int> elements;  ///< where each lane goes, or kNoElement
};

/** Interleaves, scales and stores. */
void store_elements(Graph& graph, const StoredVector& stored, bool backward);

}  // namespace dft_complex
