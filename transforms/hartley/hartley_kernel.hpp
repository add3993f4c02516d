#pragma once

/**
 * @file
 * @brief From a length to the proven graph of its Hartley kernel.
 */

#include "transforms/dft_real/kernels/real_kernel.hpp"

namespace hartley {

inline const dft_real::Family kFamily = {"Hartley", "Hartley transform of {N} real points",
                                         dft_real::Kind::Hartley};

/** The kernel of `length`, before anything of it has been proven. */
dft_real::RealKernel described_kernel(int length, dft_real::Element element,
                                      const kernelgen::Target& target = kernelgen::kReference);

/** Throws std::logic_error where the kernel has not the values of the reference target's. */
void prove_values(const dft_real::RealKernel& kernel);

/** The kernel of `length`, proven against the definition of the transform, and by its values. */
dft_real::RealKernel hartley_kernel(int length, dft_real::Element element,
                                    const kernelgen::Target& target = kernelgen::kReference);

}  // namespace hartley
