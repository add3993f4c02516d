#pragma once

/**
 * @file
 * @brief The values of single kernels as bodies of batches, in which every value is a vector of as
 * many transforms.
 *
 * A body is no description of its own: it is the value graph of the single kernel, so its bits are
 * the kernel's and need no proof but that of its memory accesses. The three layouts of a spectrum
 * are one body and three tables of places.
 */

#include <string>
#include <vector>

#include "kernelgen/schedule/schedule.hpp"
#include "transforms/real_element.hpp"

namespace transforms::batch {

enum class Family {
    ComplexForward,
    ComplexInverse,
    RealForward,
    RealInverse,
    Hartley,
    WalshHadamard
};
inline constexpr Family kFamilies[] = {Family::ComplexForward, Family::ComplexInverse,
                                       Family::RealForward,    Family::RealInverse,
                                       Family::Hartley,        Family::WalshHadamard};

/** "complex_forward", "real_forward", ..: how names of functions and files begin. */
std::string name_of(Family family);

struct Body {
    Family family;
    int size;  ///< a length, or the order of a Walsh-Hadamard transform
    RealElement element;
    kernelgen::Graph graph;  ///< of scalars
    /** Whether it multiplies by the scale factor. Others leave that to a loop behind them, which
     * few calls need: a product by 1 for each result is a tenth of all operations. */
    bool has_factor;

    /** "complex_forward_15_32f" */
    std::string name() const;
};

/** Lengths, or orders, that there are bodies of. */
std::vector<int> sizes_of(Family family);

Body body_of(Family family, int size, RealElement element);

/** The body's source for a target. */
std::string body_source(const Body& body, const kernelgen::Target& target);

/** The function that chooses a family's body by its size. */
std::string chooser_source(Family family, RealElement element);

}  // namespace transforms::batch
