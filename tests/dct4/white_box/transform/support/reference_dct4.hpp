#pragma once

/** @file @brief The DCT-IV by its definition, and fast, both far beyond the precision of kernels.
 */

#include <vector>

namespace qsvgen_test {

/** cos(pi/N (n + 1/2) (k + 1/2)): what input n contributes to output k. */
class Dct4Matrix {
  public:
    explicit Dct4Matrix(int length);
    long double at(int k, int n) const {
        const auto turns = (2LL * n + 1) * (2LL * k + 1) % (8LL * length_);
        return cosines_[static_cast<std::size_t>(turns)];
    }

  private:
    int length_;
    std::vector<long double> cosines_;  ///< of pi t / (4N)
};

/** The sum of the definition. */
std::vector<long double> dct4_by_definition(const std::vector<long double>& x);

/** The same by a complex Fourier transform of half the length; of powers of two. */
std::vector<long double> fast_dct4(const std::vector<long double>& x);

}  // namespace qsvgen_test
