#pragma once

/**
 * @file
 * @brief The definitions of the real transforms, evaluated directly in extended precision.
 */

#include <vector>

#include "support/kernel.hpp"
#include "support/real_layout.hpp"

namespace qsvgen_test {

using WideReals = std::vector<long double>;

/** The unscaled transform of a source of the layout's size, as a matrix of coefficients. */
class RealReference {
  public:
    RealReference(Direction direction, Layout layout, int length);

    /** By what an element of the source is multiplied on its way to one of the destination. */
    long double coefficient(std::size_t input, std::size_t output) const {
        return rows_.at(output).at(input);
    }

    template <class Real>
    WideReals operator()(const std::vector<Real>& source) const {
        WideReals result;
        result.reserve(rows_.size());
        for (const auto& row : rows_) {
            long double sum = 0;
            for (std::size_t i = 0; i < row.size(); ++i) sum += row[i] * source[i];
            result.push_back(sum);
        }
        return result;
    }

  private:
    std::vector<WideReals> rows_;
};

template <class E>
RealReference real_reference(const Kernel<E>& kernel) {
    return RealReference(kernel.direction, kernel.layout, kernel.length);
}

}  // namespace qsvgen_test
