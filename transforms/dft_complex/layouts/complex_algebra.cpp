#include "transforms/dft_complex/layouts/complex_algebra.hpp"

#include <algorithm>

namespace dft_complex {
namespace {

bool all_of(const std::vector<ExactComplex>& factors, auto&& property) {
    return std::all_of(factors.begin(), factors.end(), property);
}

bool is_real(const ExactComplex& f) {
    return f.im.is_zero();
}
bool is_imaginary(const ExactComplex& f) {
    return f.re.is_zero();
}
bool is_minus_i(const ExactComplex& f) {
    return is_imaginary(f) && (-f.im).is_one();
}
// On the diagonals a factor (1 +- i) c costs a sum and one product for each part.
bool is_diagonal(const ExactComplex& f) {
    return f.re.key() == f.im.key();
}
bool is_antidiagonal(const ExactComplex& f) {
    return f.re.key() == (-f.im).key();
}

class SplitAlgebra : public ComplexAlgebra {
  public:
    SplitAlgebra(Graph& graph, Type type) : ComplexAlgebra(graph, type) {}

    ComplexVector scaled(const ComplexVector& x, const Exact& c) override {
        const Lanes lanes = everywhere(c);
        return {graph_.mul(x.re, lanes), graph_.mul(x.im, lanes)};
    }
    ComplexVector turned(const ComplexVector& x) override { return {x.im, -x.re}; }
    ComplexVector turned_scaled(const ComplexVector& x, const Exact& c) override {
        return turned(scaled(x, c));
    }
    ComplexVector times(const ComplexVector& x, const std::vector<ExactComplex>& factors) override {
        Lanes c;
        Lanes s;
        for (const ExactComplex& factor : factors) {
            c.push_back(factor.re);
            s.push_back(factor.im);
        }
        Graph& g = graph_;
        if (all_of(factors, is_real)) return {g.mul(x.re, c), g.mul(x.im, c)};
        if (all_of(factors, is_imaginary)) return {-g.mul(x.im, s), g.mul(x.re, s)};
        if (all_of(factors, is_diagonal))
            return {g.mul(g.sub(x.re, x.im), c), g.mul(g.add(x.im, x.re), c)};
        if (all_of(factors, is_antidiagonal))
            return {g.mul(g.add(x.re, x.im), c), g.mul(g.sub(x.im, x.re), c)};
        // One statement a node: the numbers of nodes must not depend on the compiler's order of
        // evaluating arguments.
        const Ref im_s = g.mul(x.im, s);
        const Ref re_c = g.mul(x.re, c);
        const Ref re = g.sub(re_c, im_s);
        const Ref re_s = g.mul(x.re, s);
        const Ref im_c = g.mul(x.im, c);
        return {re, g.add(im_c, re_s)};
    }

  private:
    Lanes everywhere(const Exact& c) const {
        return Lanes(static_cast<std::size_t>(lane_count(type_)), c);
    }
};

class InterleavedAlgebra : public ComplexAlgebra {
  public:
    InterleavedAlgebra(Graph& graph, Type type, bool backward)
        : ComplexAlgebra(graph, type), backward_(backward) {}

    ComplexVector scaled(const ComplexVector& x, const Exact& c) override {
        return {graph_.mul(x.re, parts(c, c)), {}};
    }
    ComplexVector turned(const ComplexVector& x) override {
        if (x.is_zero()) return x;
        const std::uint8_t first = backward_ ? 1 : 0;
        const std::uint8_t second = backward_ ? 0 : 1;
        return {graph_.flip(exchanged(x.re), {first, second, first, second}), {}};
    }
    ComplexVector turned_scaled(const ComplexVector& x, const Exact& c) override {
        if (x.is_zero() || c.is_zero()) return {};
        if (c.is_one()) return turned(x);
        return {graph_.mul(exchanged(x.re), parts(c, -c)), {}};
    }
    ComplexVector times(const ComplexVector& x, const std::vector<ExactComplex>& factors) override {
        if (x.is_zero()) return x;
        Lanes c;
        Lanes s;
        for (const ExactComplex& factor : factors) {
            append(c, factor.re, factor.re);
            append(s, -factor.im, factor.im);
        }
        if (all_of(factors, is_real)) return {graph_.mul(x.re, c), {}};
        if (all_of(factors, is_minus_i)) return turned(x);
        if (all_of(factors, is_imaginary)) return {graph_.mul(exchanged(x.re), s), {}};
        if (all_of(factors, is_diagonal))
            return {graph_.mul(graph_.sub(x.re, turned(x).re), c), {}};
        if (all_of(factors, is_antidiagonal))
            return {graph_.mul(graph_.add(x.re, turned(x).re), c), {}};
        const Ref turned_s = graph_.mul(exchanged(x.re), s);
        const Ref plain_c = graph_.mul(x.re, c);
        return {graph_.add(plain_c, turned_s), {}};
    }

  private:
    Ref exchanged(Ref x) {
        return lane_count(type_) == 2 ? graph_.shuffle(x, x, {1, 0, 0, 0})
                                      : graph_.shuffle(x, x, {1, 0, 7, 6});
    }
    void append(Lanes& lanes, const Exact& re, const Exact& im) const {
        lanes.push_back(backward_ ? im : re);
        lanes.push_back(backward_ ? re : im);
    }
    Lanes parts(const Exact& re, const Exact& im) const {
        Lanes lanes;
        while (static_cast<int>(lanes.size()) < lane_count(type_)) append(lanes, re, im);
        return lanes;
    }

    bool backward_;
};

}  // namespace

ComplexVector ComplexAlgebra::add(const ComplexVector& x, const ComplexVector& y) {
    return {graph_.add(x.re, y.re), graph_.add(x.im, y.im)};
}

ComplexVector ComplexAlgebra::sub(const ComplexVector& x, const ComplexVector& y) {
    return {graph_.sub(x.re, y.re), graph_.sub(x.im, y.im)};
}

std::unique_ptr<ComplexAlgebra> make_algebra(Graph& graph, Type type, Layout layout,
                                             bool backward) {
    if (layout == Layout::Split) return std::make_unique<SplitAlgebra>(graph, type);
    return std::make_unique<InterleavedAlgebra>(graph, type, backward);
}

}  // namespace dft_complex
