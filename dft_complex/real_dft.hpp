#pragma once

/**
 * @file
 * @brief DFT of a real sequence as a network of real sums and products, run both ways.
 *
 * "Real" means that all constants are real: the values may be anything that can be added and scaled
 * by reals, complex vectors among them. The way back is the transposed network: every edge turned
 * round, so that it costs what the way forth costs.
 */

#include <vector>

#include "dft_complex/complex_algebra.hpp"
#include "dft_complex/rules.hpp"

namespace dft_complex {

using Points = std::vector<ComplexVector>;

class RealDft {
  public:
    /** Length rule.length, even, by a decomposition without Rader's or the chirp form. */
    explicit RealDft(const Rule& rule);

    int length() const { return length_; }

    /** even[k] = sum of u[j] cos(2 pi j k / L), k = 0 to L/2; odd[k] the same with the sine, where
     * k = 0 and L/2 are absent. */
    struct HalfSpectrum {
        Points even;
        Points odd;
    };

    HalfSpectrum forward(ComplexAlgebra& algebra, const Points& u) const;

    /** r[j] = sum over k of even[k] cos(2 pi j k / L) + odd[k] sin(2 pi j k / L). */
    Points transposed(ComplexAlgebra& algebra, const HalfSpectrum& spectrum) const;

  private:
    int length_;
    Graph graph_;  ///< of scalars; element j of its source is u[j]
    std::vector<Ref> even_;
    std::vector<Ref> odd_;
    std::vector<kernelgen::NodeId> needed_;  ///< operands before users
};

}  // namespace dft_complex
