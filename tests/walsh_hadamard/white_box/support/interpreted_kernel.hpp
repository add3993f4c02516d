#pragma once

/** @file @brief A Walsh-Hadamard kernel by its graphs, in IEEE arithmetic. */

#include <vector>

#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

namespace walsh_hadamard_test {

/** Outputs of the kernel's passes, every body run by the bit interpreter. */
std::vector<double> interpreted(const walsh_hadamard::Kernel& kernel, const std::vector<double>& x,
                                double scale);

/** The stages of strides 1, 2, ..., N/2 and the product, rounded to Real. */
template <class Real>
std::vector<double> by_the_sequence(const std::vector<double>& source, double scale) {
    std::vector<Real> x(source.begin(), source.end());
    for (std::size_t h = 1; h < x.size(); h *= 2) {
        for (std::size_t j = 0; j < x.size(); ++j) {
            if ((j & h) != 0) continue;
            const Real a = x[j];
            const Real b = x[j + h];
            x[j] = a + b;
            x[j + h] = a - b;
        }
    }
    for (Real& value : x) value *= static_cast<Real>(scale);
    return {x.begin(), x.end()};
}

}  // namespace walsh_hadamard_test
