#include "transforms/dft_real/decompositions/row_arithmetic.hpp"

#include <cstdio>

namespace dft_real {

using kernelgen::Op;

Exact product_of_rounded(const Exact& a, const Exact& b) {
    const double product = a.to_binary64() * b.to_binary64();
    char decimal[32];
    std::snprintf(decimal, sizeof decimal, "%.17g", product);
    return Exact::pinned(decimal, Exact::product({a, b}));
}

Complex RowArithmetic::add(const Complex& a, const Complex& b) {
    const Ref re = add(a.re, b.re);
    return {re, add(a.im, b.im)};
}

Complex RowArithmetic::sub(const Complex& a, const Complex& b) {
    const Ref re = sub(a.re, b.re);
    return {re, sub(a.im, b.im)};
}

Ref RowArithmetic::row(const std::vector<Term>& terms) {
    std::vector<Term> present;
    for (const Term& term : terms) {
        if (!term.value.is_zero() && !term.constant.is_zero()) present.push_back(term);
    }
    if (present.empty()) return {};
    const Term& first = present.front();
    if (present.size() == 1 && first.constant.is_one()) return first.value;
    if (present.size() == 1 && (-first.constant).is_one()) return -first.value;
    Ref sum;
    for (const Term& term : present)
        sum = graph_.add(sum, graph_.mul(graph_.widen(term.value), Lanes{term.constant}));
    return graph_.round(sum);
}

Term RowArithmetic::only_product_of(Ref x) const {
    Term itself{Exact::rational(1), x};
    if (x.is_zero() || graph_.node(x.id).op != Op::Round) return itself;
    const kernelgen::Node& product = graph_.node(graph_.node(x.id).a);
    if (product.op != Op::Mul) return itself;
    const auto constant = static_cast<std::size_t>(graph_.node(product.b).constant);
    return {graph_.constants()[constant].front(), {graph_.node(product.a).a, x.negative}};
}

Ref RowArithmetic::doubled(Ref x) {
    return x.is_zero() ? x : graph_.mul(x, Lanes{Exact::rational(2)});
}

void RowArithmetic::store_scaled(Ref x, int element) {
    const bool ends_a_row = graph_.node(x.id).op == Op::Round;
    const Ref unsigned_x{x.id};
    const Ref scale = graph_.scale(Type::Binary32);
    Ref scaled = ends_a_row ? graph_.mul(Ref{graph_.node(x.id).a}, graph_.widen(scale))
                            : graph_.mul(unsigned_x, scale);
    if (x.negative) {
        const Type type = graph_.node(scaled.id).type;
        scaled = graph_.add(graph_.zero(type), -scaled);
    }
    graph_.store(ends_a_row ? graph_.round(scaled) : scaled, element);
}

}  // namespace dft_real
