#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

#include <algorithm>
#include <stdexcept>

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

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

/** A pair x[j], x[p-j] of an odd prime's points. */
struct Pair {
    ComplexVector sum;
    ComplexVector difference;
};

// y[k] and y[p-k] are E[k] -+ i O[k], with E[k] = x[0] + sum of the pairs' sums times
// cos(2 pi j k / p) and O[k] = sum of their differences times sin(2 pi j k / p). `sine_term` gives
// -i times a difference times its sine.
Points from_pairs(ComplexAlgebra& m, const ComplexVector& x0, const std::vector<Pair>& pairs,
                  const auto& sine_term) {
    const int h = static_cast<int>(pairs.size());
    const int p = 2 * h + 1;
    Points total{x0};
    for (const Pair& pair : pairs) total.push_back(pair.sum);
    Points y(at(p));
    y[0] = balanced_sum(m, total);
    for (int k = 1; k <= h; ++k) {
        Points even_terms{x0};
        Points odd_terms;
        for (int j = 1; j <= h; ++j) {
            const Pair& pair = pairs[at(j - 1)];
            even_terms.push_back(m.scaled(pair.sum, Exact::cosine(j * k, p)));
            odd_terms.push_back(sine_term(pair.difference, Exact::sine(j * k, p)));
        }
        const ComplexVector even = balanced_sum(m, even_terms);
        const ComplexVector odd = balanced_sum(m, odd_terms);
        y[at(k)] = m.add(even, odd);
        y[at(p - k)] = m.sub(even, odd);
    }
    return y;
}

// The two cosines are -1/4 +- sqrt(5)/4: half their sum serves both sums of pairs, half their
// difference takes the difference of the two.
Points from_two_pairs_by_half_sum(ComplexAlgebra& m, const ComplexVector& x0,
                                  const std::vector<Pair>& pairs, const auto& sine_term) {
    const auto& [a, c] = pairs[0];
    const auto& [b, d] = pairs[1];
    const ComplexVector both = m.add(a, b);
    const ComplexVector center = m.sub(x0, m.scaled(both, Exact::rational(1, 4)));
    const Exact quarter_root = Exact::product({Exact::rational(1, 4), Exact::square_root(5)});
    const ComplexVector apart = m.scaled(m.sub(a, b), quarter_root);
    const ComplexVector even1 = m.add(center, apart);
    const ComplexVector even2 = m.sub(center, apart);
    const Exact s1 = Exact::sine(1, 5);
    const Exact s2 = Exact::sine(2, 5);
    const ComplexVector c_s1 = sine_term(c, s1);
    const ComplexVector odd1 = m.add(c_s1, sine_term(d, s2));
    const ComplexVector c_s2 = sine_term(c, s2);
    const ComplexVector odd2 = m.sub(c_s2, sine_term(d, s1));
    return {m.add(x0, both), m.add(even1, odd1), m.add(even2, odd2), m.sub(even2, odd2),
            m.sub(even1, odd1)};
}

std::vector<Pair> pairs_of(ComplexAlgebra& m, const Points& x) {
    const int p = static_cast<int>(x.size());
    std::vector<Pair> pairs;
    for (int j = 1; 2 * j < p; ++j) {
        const ComplexVector sum = m.add(x[at(j)], x[at(p - j)]);
        pairs.push_back({sum, m.sub(x[at(j)], x[at(p - j)])});
    }
    return pairs;
}

}  // namespace

Points direct_form(ComplexAlgebra& m, const Points& x) {
    return from_pairs(m, x[0], pairs_of(m, x),
                      [&](const ComplexVector& difference, const Exact& sine) {
                          return m.turned_scaled(difference, sine);
                      });
}

Points five_by_half_sum(ComplexAlgebra& m, const Points& x) {
    return from_two_pairs_by_half_sum(m, x[0], pairs_of(m, x),
                                      [&](const ComplexVector& difference, const Exact& sine) {
                                          return m.turned_scaled(difference, sine);
                                      });
}

// f a + conj(f) b = c s + i d t and -i (f a - conj(f) b) = d s - i c t, f = c + i d, s = a + b,
// t = a - b.
Points with_conjugate_factors(ComplexAlgebra& m, const Points& x,
                              const std::vector<Factors>& factors, SmallForm form) {
    if (form == SmallForm::RaderOfSeven)
        throw std::invalid_argument("Rader's form of seven points takes no conjugate factors");
    const int p = static_cast<int>(x.size());
    const Exact zero = Exact::rational(0);
    // The only sine of length 3 joins the factors.
    const Exact weight = p == 3 ? Exact::sine(1, 3) : Exact::rational(1);
    std::vector<Pair> pairs;
    for (int j = 1; 2 * j < p; ++j) {
        Factors c, id, weighted_d, weighted_turned_c;
        for (const ExactComplex& f : factors[at(j)]) {
            c.push_back({f.re, zero});
            id.push_back({zero, f.im});
            weighted_d.push_back({Exact::product({weight, f.im}), zero});
            weighted_turned_c.push_back({zero, -Exact::product({weight, f.re})});
        }
        const ComplexVector s = m.add(x[at(j)], x[at(p - j)]);
        const ComplexVector t = m.sub(x[at(j)], x[at(p - j)]);
        const ComplexVector t_id = m.times(t, id);
        const ComplexVector s_c = m.times(s, c);
        const ComplexVector t_c = m.times(t, weighted_turned_c);
        const ComplexVector s_d = m.times(s, weighted_d);
        const ComplexVector sum = m.add(s_c, t_id);
        pairs.push_back({sum, m.add(s_d, t_c)});
    }
    const auto sine_term = [&](const ComplexVector& difference, const Exact& sine) {
        return p == 3 ? difference : m.scaled(difference, sine);
    };
    return form == SmallForm::HalfSumOfTwo ? from_two_pairs_by_half_sum(m, x[0], pairs, sine_term)
                                           : from_pairs(m, x[0], pairs, sine_term);
}

bool all_one(const Factors& factors) {
    return std::all_of(factors.begin(), factors.end(),
                       [](const ExactComplex& f) { return f.is_one(); });
}

bool conjugate_pairs(const std::vector<Factors>& factors) {
    const std::size_t p = factors.size();
    if (p % 2 == 0 || !all_one(factors[0])) return false;
    bool plain = true;
    for (std::size_t j = 1; 2 * j < p; ++j) {
        for (std::size_t i = 0; i < factors[j].size(); ++i) {
            const ExactComplex& f = factors[j][i];
            const ExactComplex& g = factors[p - j][i];
            if (f.re.key() != g.re.key() || f.im.key() != (-g.im).key()) return false;
        }
        plain = plain && all_one(factors[j]);
    }
    return !plain;
}

bool folds_conjugate_factors(SmallForm form, const std::vector<Factors>& factors) {
    return form != SmallForm::RaderOfSeven && conjugate_pairs(factors);
}

Points small_transform(ComplexAlgebra& algebra, int radix, SmallForm form, const Points& x) {
    switch (form) {
        case SmallForm::HalfSumOfTwo:
            return five_by_half_sum(algebra, x);
        case SmallForm::RaderOfSeven:
            return seven_by_rader(algebra, x);
        case SmallForm::Pairs:
            return direct_form(algebra, x);
        case SmallForm::Usual:
            break;
    }
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
            return rader_over_reals(algebra, x);
    }
}

}  // namespace dft_complex
