#pragma once

/** @file @brief Elements of the arrays that real transforms work on. */

#include <string>

#include "kernelgen/graph/graph.hpp"

namespace transforms {

/** binary32, "32f", or binary64, "64f". */
enum class RealElement { Real32, Real64 };
inline constexpr RealElement kRealElements[] = {RealElement::Real32, RealElement::Real64};

/** How names of functions and files end. */
inline std::string suffix(RealElement element) {
    return element == RealElement::Real32 ? "32f" : "64f";
}

/** The type's name in the library's code. */
inline std::string real_name(RealElement element) {
    return element == RealElement::Real32 ? "Real32" : "Real64";
}

inline std::string precision_name(RealElement element) {
    return element == RealElement::Real32 ? "single" : "double";
}

inline int bytes(RealElement element) {
    return element == RealElement::Real32 ? 4 : 8;
}

inline kernelgen::Type scalar_type(RealElement element) {
    return element == RealElement::Real32 ? kernelgen::Type::Binary32 : kernelgen::Type::Binary64;
}

inline kernelgen::Type vector_type(RealElement element) {
    return element == RealElement::Real32 ? kernelgen::Type::Binary32x4
                                          : kernelgen::Type::Binary64x2;
}

/** Elements in a vector. */
inline int lanes(RealElement element) {
    return kernelgen::lane_count(vector_type(element));
}

}  // namespace transforms
