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

/** Of 16, 32 or 64 bytes. */
inline kernelgen::Type vector_type(RealElement element, int vector_bytes) {
    const bool single = element == RealElement::Real32;
    switch (vector_bytes) {
        case 64:
            return single ? kernelgen::Type::Binary32x16 : kernelgen::Type::Binary64x8;
        case 32:
            return single ? kernelgen::Type::Binary32x8 : kernelgen::Type::Binary64x4;
        default:
            return vector_type(element);
    }
}

/** Elements in a vector of 16 bytes. */
inline int lanes(RealElement element) {
    return kernelgen::lane_count(vector_type(element));
}

/** Elements in a vector of so many bytes. */
inline int lanes(RealElement element, int vector_bytes) {
    return vector_bytes / bytes(element);
}

}  // namespace transforms
