#pragma once

/**
 * @file
 * @brief DFT of a real sequence as a network of real sums and products, run both ways.
 *
 * "Real" means that all constants are real: the values may be anything that can be added and scaled
 * by reals, complex vectors among them. The way back is the transposed network: every edge turned
 * round, so that it costs what the way forth costs.
 */

#include <set>
#include <vector>

#include "transforms/dft_complex/layouts/complex_algebra.hpp"
#include "transforms/dft_complex/rules/rules.hpp"

namespace dft_complex {

using Points = std::vector<ComplexVector>;

class RealDft {
  public:
    /** Length rule.length, even, by a decomposition without Rader's or the chirp form. */
    explicit RealDft(const Rule& rule);

    int length() const { return length_; }

    /** Values over k = 0 to L/2; odd ones are absent at 0 and L/2. */
    struct HalfSpectrum {
        Points even;
        Points odd;
    };

    /** even_factor(k) even[k] = sum of u[j] cos(2 pi j k / L), odd_factor(k) odd[k] the same with
     * the sine. */
    HalfSpectrum forward(ComplexAlgebra& algebra, const Points& u) const;

    /** r[j] = sum over k of even_factor(k) even[k] cos(2 pi j k / L) + odd_factor(k) odd[k]
     * sin(2 pi j k / L). */
    Points transposed(ComplexAlgebra& algebra, const HalfSpectrum& spectrum) const;

    /** A product that would be the last step of an output is left to whoever scales the spectrum.
     */
    const Exact& even_factor(int k) const { return even_[static_cast<std::size_t>(k)].factor; }
    const Exact& odd_factor(int k) const { return odd_[static_cast<std::size_t>(k)].factor; }

  private:
    struct Output {
        Ref value;
        Exact factor = Exact::rational(1);
    };

    std::set<kernelgen::NodeId> nodes_of_outputs() const;
    void join_products_of_products();
    void leave_out_last_products();

    int length_;
    Graph graph_;  ///< of scalars; element j of its source is u[j]
    std::vector<Output> even_;
    std::vector<Output> odd_;
    std::vector<kernelgen::NodeId> needed_;  ///< operands before users
};

}  // namespace dft_complex
