#include <algorithm>

#include "transforms/dft_real/decompositions/real_dft.hpp"
#include "transforms/dft_real/rules/stage_orders.hpp"

namespace dft_real {
namespace {

Ref sum_in_order(RowArithmetic& m, const Reals& values) {
    Ref sum;
    for (Ref value : values) sum = m.add(sum, value);
    return sum;
}

// A row leads with a positive term where it has one, so that it needs no change of sign.
Ref led_by_positive(RowArithmetic& m, std::vector<Term> terms) {
    const auto positive = std::find_if(terms.begin(), terms.end(), [](const Term& t) {
        return !t.value.is_zero() && t.constant.is_negative() == t.value.negative;
    });
    if (positive != terms.end()) std::rotate(terms.begin(), positive, positive + 1);
    return m.row(terms);
}

// x0 + sum of c[j] v[j]: x0 stands last where the first product is positive, else it leads.
Ref even_row(RowArithmetic& m, Ref x0, const std::vector<Term>& products) {
    std::vector<Term> terms = products;
    const Term plain{Exact::rational(1), x0};
    terms.insert(products.front().constant.is_negative() ? terms.begin() : terms.end(), plain);
    return m.row(terms);
}

// One point of each pair j, p - j, in the order in which rows add them up. The bits of 7 points, by
// the powers of 5 and back by those of 3, are part of what callers may rely on.
Order points_of_pairs(int p, Kind kind) {
    if (p == 7) return kind == Kind::Inverse ? Order{1, 3, 2} : Order{1, 5, 4};
    Order points;
    for (int j = 1; 2 * j < p; ++j) points.push_back(j);
    return points;
}

}  // namespace

HalfSpectrum dense_real_dft(RowArithmetic& m, const Reals& x, ImaginarySign sign) {
    const int p = static_cast<int>(x.size());
    const Order points = points_of_pairs(p, Kind::Forward);
    Reals u;
    Reals d;
    for (int j : points) {
        u.push_back(m.add(x[at(j)], x[at(p - j)]));
        d.push_back(m.sub(x[at(j)], x[at(p - j)]));
    }
    HalfSpectrum X(at(p / 2 + 1));
    X[0].re = m.add(sum_in_order(m, u), x[0]);
    for (int k = 1; 2 * k < p; ++k) {
        std::vector<Term> cosines;
        std::vector<Term> sines;
        for (std::size_t i = 0; i < points.size(); ++i) {
            cosines.push_back({Exact::cosine(points[i] * k, p), u[i]});
            const Exact sine = Exact::sine(points[i] * k, p);
            sines.push_back({sign == ImaginarySign::Positive ? -sine : sine, d[i]});
        }
        const Ref re = even_row(m, x[0], cosines);
        const Ref im = led_by_positive(m, sines);
        X[at(k)] = {re, sign == ImaginarySign::Positive ? im : -im};
    }
    return X;
}

Reals dense_inverse(RowArithmetic& m, const HalfSpectrum& X) {
    const int h = static_cast<int>(X.size()) - 1;
    const int p = 2 * h + 1;
    const Order pairs = points_of_pairs(p, Kind::Inverse);
    Reals x(at(p));
    Reals all;
    for (int k : pairs) all.push_back(X[at(k)].re);
    x[0] = m.add(sum_in_order(m, all), X[0].re);
    for (int n = 1; n <= h; ++n) {
        std::vector<Term> cosines;
        std::vector<Term> sines;
        for (int k : pairs) {
            cosines.push_back({Exact::cosine(n * k, p), X[at(k)].re});
            sines.push_back({Exact::sine(n * k, p), X[at(k)].im});
        }
        const Ref P = even_row(m, X[0].re, cosines);
        const Ref Q = led_by_positive(m, sines);
        x[at(n)] = m.sub(P, Q);
        x[at(p - n)] = m.add(P, Q);
    }
    return x;
}

// Of the transforms A and B of the real and the imaginary parts, A + i B, and at p - k of their
// conjugates.
Complexes dense_complex_dft(RowArithmetic& m, const Complexes& x) {
    const int p = static_cast<int>(x.size());
    Reals re;
    Reals im;
    for (const Complex& value : x) {
        re.push_back(value.re);
        im.push_back(value.im);
    }
    const auto transformed = [&](const Reals& values) {
        return method_of_real_dft({p}) == Method::Dense
                   ? dense_real_dft(m, values)
                   : rader_real_dft(m, row_of(p).order_of(Kind::Forward), values);
    };
    const HalfSpectrum A = transformed(re);
    const HalfSpectrum B = transformed(im);
    Complexes y(at(p));
    y[0] = {A[0].re, B[0].re};
    for (int k = 1; 2 * k < p; ++k) {
        const Complex& a = A[at(k)];
        const Complex& b = B[at(k)];
        y[at(k)] = {m.sub(a.re, b.im), m.add(a.im, b.re)};
        y[at(p - k)] = {m.add(a.re, b.im), m.sub(b.re, a.im)};
    }
    return y;
}

}  // namespace dft_real
