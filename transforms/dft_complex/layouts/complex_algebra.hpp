#pragma once

/**
 * @file
 * @brief Complex arithmetic on vectors, in the two ways a kernel holds complex values.
 *
 * Split: a vector of real parts beside a vector of imaginary parts, one transform a lane. A quarter
 * turn only swaps the two. Interleaved: both parts of a value side by side in one vector, half as
 * many transforms; a quarter turn is a lane swap. Formulas are written once over this interface.
 *
 * The inverse direction is the forward one with real and imaginary parts exchanged, so a split
 * kernel only exchanges them at its loads and stores, and an interleaved vector only names its two
 * lanes the other way round.
 */

#include <memory>
#include <vector>

#include "kernelgen/graph/graph.hpp"

namespace dft_complex {

using kernelgen::Exact;
using kernelgen::ExactComplex;
using kernelgen::Graph;
using kernelgen::Lanes;
using kernelgen::Ref;
using kernelgen::Type;

enum class Layout { Split, Interleaved };

/** Split: real and imaginary vector. Interleaved: `re` holds both, `im` is unused. */
struct ComplexVector {
    Ref re;
    Ref im;

    bool is_zero() const { return re.is_zero() && im.is_zero(); }
};

class ComplexAlgebra {
  public:
    virtual ~ComplexAlgebra() = default;

    ComplexVector add(const ComplexVector& x, const ComplexVector& y);
    ComplexVector sub(const ComplexVector& x, const ComplexVector& y);
    /** c x for a real constant. */
    virtual ComplexVector scaled(const ComplexVector& x, const Exact& c) = 0;
    /** -i x */
    virtual ComplexVector turned(const ComplexVector& x) = 0;
    /** -i c x for a real constant. */
    virtual ComplexVector turned_scaled(const ComplexVector& x, const Exact& c) = 0;
    /** Each transform's value times its own complex constant. */
    virtual ComplexVector times(const ComplexVector& x,
                                const std::vector<ExactComplex>& factors) = 0;

  protected:
    ComplexAlgebra(Graph& graph, Type type) : graph_(graph), type_(type) {}
    Graph& graph_;
    Type type_;
};

/** `backward`: the kernel holds its parts exchanged, as the inverse direction does. */
std::unique_ptr<ComplexAlgebra> make_algebra(Graph& graph, Type type, Layout layout, bool backward);

}  // namespace dft_complex
