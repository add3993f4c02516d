#pragma once

/**
 * @file
 * @brief Runs a network over complex vectors, one vector a value.
 */

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex {

/** What becomes of factors that are conjugate in pairs. */
enum class ConjugateFactors {
    Folded,  ///< into the small transform that follows
    Apart,   ///< as products of their own: outputs for real inputs stay recognisable as conjugate
};

/** The values of `outputs` for the kernel's inputs x. Absent values are structural zeros. */
Points evaluate(ComplexAlgebra& algebra, const Network& network, const Points& x,
                const Signal& outputs, ConjugateFactors conjugate_factors);

}  // namespace dft_complex
