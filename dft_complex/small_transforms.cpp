#include "dft_complex/small_transforms.hpp"

#include "dft_complex/network.hpp"

namespace dft_complex {
namespace {

Points two(ComplexAlgebra& m, const Points& x) {
    return {m.add(x[0], x[1]), m.sub(x[0], x[1])};
}

Points four(ComplexAlgebra& m, const Points& x) {
    const ComplexVector a = m.add(x[0], x[2]);
    const ComplexVector b = m.sub(x[0], x[2]);
    const ComplexVector c = m.add(x[1], x[3]);
    const ComplexVector d = m.turned(m.sub(x[1], x[3]));
    return {m.add(a, c), m.add(b, d), m.sub(a, c), m.sub(b, d)};
}

// Pairs first, then pairs of pairs: half the rounding error of a running sum, and less to wait for.
ComplexVector balanced_sum(ComplexAlgebra& m, Points terms) {
    while (terms.size() > 1) {
        Points sums;
        for (std::size_t i = 0; i + 1 < terms.size(); i += 2)
            sums.push_back(m.add(terms[i], terms[i + 1]));
        if (terms.size() % 2 != 0) sums.push_back(terms.back());
        terms = sums;
    }
    return terms.front();
}

// Even outputs: DFT of x[n] + x[n+4]. Odd outputs: DFT of (x[n] - x[n+4]) w^n, w = exp(-pi i / 4),
// whose rotations by w and w^3 wait until their sum and difference are known.
Points eight(ComplexAlgebra& m, const Points& x) {
    const Points even =
        four(m, {m.add(x[0], x[4]), m.add(x[1], x[5]), m.add(x[2], x[6]), m.add(x[3], x[7])});
    const ComplexVector v0 = m.sub(x[0], x[4]);
    const ComplexVector v1 = m.sub(x[1], x[5]);
    const ComplexVector v2 = m.turned(m.sub(x[2], x[6]));
    const ComplexVector v3 = m.turned(m.sub(x[3], x[7]));
    const Exact c = Exact::cosine(1, 8);
    const ComplexVector p = m.add(v0, v2);
    const ComplexVector q = m.sub(v0, v2);
    const ComplexVector r = m.add(v1, v3);
    const ComplexVector s = m.sub(v1, v3);
    const ComplexVector rw = m.scaled(m.add(r, m.turned(r)), c);
    const ComplexVector sw = m.scaled(m.sub(m.turned(s), s), c);
    return {even[0], m.add(p, rw), even[1], m.add(q, sw),
            even[2], m.sub(p, rw), even[3], m.sub(q, sw)};
}

}  // namespace

// y[k] and y[p-k] are E[k] -+ i O[k], with E[k] = x[0] + sum of (x[j] + x[p-j]) cos(2 pi j k / p)
// and O[k] = sum of (x[j] - x[p-j]) sin(2 pi j k / p).
Points direct_form(ComplexAlgebra& m, const Points& x) {
    const int p = static_cast<int>(x.size());
    const int h = (p - 1) / 2;
    const auto at = [](int i) { return static_cast<std::size_t>(i); };
    Points a(at(h + 1));
    Points b(at(h + 1));
    Points total{x[0]};
    for (int j = 1; j <= h; ++j) {
        a[at(j)] = m.add(x[at(j)], x[at(p - j)]);
        b[at(j)] = m.sub(x[at(j)], x[at(p - j)]);
        total.push_back(a[at(j)]);
    }
    Points y(at(p));
    y[0] = balanced_sum(m, total);
    for (int k = 1; k <= h; ++k) {
        Points even_terms{x[0]};
        Points odd_terms;  // of -i O[k]
        for (int j = 1; j <= h; ++j) {
            even_terms.push_back(m.scaled(a[at(j)], Exact::cosine(j * k, p)));
            odd_terms.push_back(m.turned_scaled(b[at(j)], Exact::sine(j * k, p)));
        }
        const ComplexVector even = balanced_sum(m, even_terms);
        const ComplexVector odd = balanced_sum(m, odd_terms);
        y[at(k)] = m.add(even, odd);
        y[at(p - k)] = m.sub(even, odd);
    }
    return y;
}

// f a + conj(f) b = c s + i d t and f a - conj(f) b = c t + i d s, f = c + i d, s = a + b, t = a -
// b.
Points three_with_conjugate_factors(ComplexAlgebra& m, const Points& x,
                                    const std::vector<ExactComplex>& factors) {
    const Exact zero = Exact::rational(0);
    const Exact sine = Exact::sine(1, 3);
    std::vector<ExactComplex> c, id, sine_d, turned_sine_c;
    for (const ExactComplex& f : factors) {
        c.push_back({f.re, zero});
        id.push_back({zero, f.im});
        sine_d.push_back({Exact::product({sine, f.im}), zero});
        turned_sine_c.push_back({zero, -Exact::product({sine, f.re})});
    }
    const ComplexVector s = m.add(x[1], x[2]);
    const ComplexVector t = m.sub(x[1], x[2]);
    const ComplexVector t_id = m.times(t, id);
    const ComplexVector s_c = m.times(s, c);
    const ComplexVector u = m.add(s_c, t_id);
    const ComplexVector even = m.sub(x[0], m.scaled(u, Exact::rational(1, 2)));
    const ComplexVector t_c = m.times(t, turned_sine_c);
    const ComplexVector s_d = m.times(s, sine_d);
    const ComplexVector odd = m.add(s_d, t_c);
    return {m.add(x[0], u), m.add(even, odd), m.sub(even, odd)};
}

Points small_transform(ComplexAlgebra& algebra, int radix, const Points& x) {
    switch (radix) {
        case SmallTransform::kSum:
            return {algebra.add(x[0], x[1])};
        case 2:
            return two(algebra, x);
        case 4:
            return four(algebra, x);
        case 8:
            return eight(algebra, x);
        case 3:
        case 5:
        case 7:
        case 11:
            return direct_form(algebra, x);
        default:
            return rader_in_lanes(algebra, x);
    }
}

}  // namespace dft_complex
