#pragma once

/** @file @brief The transforms of the library, by its functions that do many of a length in a call.
 */

#include <functional>
#include <span>
#include <vector>

#include "request.hpp"

namespace qsvg_tool {

/** Lines of a block before and after the transform. */
struct BlockLines {
    size_t source;
    size_t destination;
};
BlockLines BlockLinesOf(const Request& request);

/** Throws an example::Error that names the family's lengths, where this is none of them. */
void CheckLength(const Request& request);

/** Transforms blocks of numbers that follow one another, the parts of a complex value one after the
 * other. Real is Real32 or Real64. */
template <class Real>
using BlockTransforms = std::function<std::vector<Real>(std::span<const Real> source)>;

/** Throws example::Error where the library refuses. */
template <class Real>
BlockTransforms<Real> TransformsOf(const Request& request);

}  // namespace qsvg_tool
