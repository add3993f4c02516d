#pragma once

/**
 * @file
 * @brief Scalar arithmetic of the real transforms, with the rule of its two precisions built in.
 *
 * Values pass from stage to stage in binary32. A product with a constant exists only inside a row:
 * a row's operands are widened, its products and sums are formed in binary64, and it is rounded to
 * binary32 once, at its end.
 */

#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace dft_real {

using kernelgen::Exact;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::NodeId;
using kernelgen::Ref;
using kernelgen::Type;

/** A summand of a row; a constant of 1 is no product. */
struct Term {
    Exact constant;
    Ref value;
};

/** A complex value of two scalars; an absent part is a structural zero. */
struct Complex {
    Ref re;
    Ref im;
};

using Reals = std::vector<Ref>;
using Complexes = std::vector<Complex>;

/** The product of two constants as a row takes it: of their two rounded values, rounded. */
Exact product_of_rounded(const Exact& a, const Exact& b);

class RowArithmetic {
  public:
    explicit RowArithmetic(Graph& graph) : graph_(graph) {}

    Ref add(Ref a, Ref b) { return graph_.add(a, b); }
    Ref sub(Ref a, Ref b) { return graph_.sub(a, b); }
    Complex add(const Complex& a, const Complex& b);
    Complex sub(const Complex& a, const Complex& b);
    /** The terms in their order, as one row. Absent values are left out. */
    Ref row(const std::vector<Term>& terms);

    /** The product of a row of one product, or x itself with a constant of 1: where all uses of x
     * are products, their constants can take that of the row. */
    Term only_product_of(Ref x) const;

    Ref load(int element) { return graph_.load(Type::Binary32, element); }
    /** 2 x in binary32, exact unless it overflows. */
    Ref doubled(Ref x);
    /** x times the scale factor: in a row's precision where x ends a row. A negative x is
     * subtracted from +0, so that an exact zero comes out as +0. */
    void store_scaled(Ref x, int element);
    void store_zero(int element) { graph_.store(graph_.zero(Type::Binary32), element); }

  private:
    Graph& graph_;
};

}  // namespace dft_real
