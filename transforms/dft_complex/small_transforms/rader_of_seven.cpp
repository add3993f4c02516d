#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex {
namespace {

/** What the spectrum makes of three points: r[0] = alone + 2 h, r[1] and r[2] = alone - h +- t. */
struct ThreeBack {
    ComplexVector alone;
    ComplexVector h;
    ComplexVector t;
};

// Products of the DFT of (x0, x1, x2) with the spectrum at the frequency that stands `alone`, a
// real or imaginary value, and at a pair of frequencies, where it is c + i s of a real sequence;
// sqrt(3) of the way back is folded into the part that meets the sine.
ThreeBack times_spectrum(ComplexAlgebra& m, const Points& x, const Exact& alone, const Exact& c,
                         const Exact& s, bool turned, ComplexVector& sum_of_all) {
    const Exact root = Exact::square_root(3);
    const ComplexVector u = m.add(x[1], x[2]);
    const ComplexVector d = m.sub(x[1], x[2]);
    sum_of_all = m.add(x[0], u);
    const ComplexVector even = m.sub(x[0], m.scaled(u, Exact::rational(1, 2)));
    const ComplexVector odd = m.scaled(d, Exact::sine(1, 3));
    const auto times = [&](const ComplexVector& v, const Exact& factor) {
        return turned ? m.turned_scaled(v, factor) : m.scaled(v, factor);
    };
    const ComplexVector even_c = times(even, c);
    const ComplexVector h = m.sub(even_c, times(odd, s));
    const ComplexVector odd_c = times(odd, Exact::product({root, c}));
    const ComplexVector t = m.add(odd_c, times(even, Exact::product({root, s})));
    return {times(sum_of_all, alone), h, t};
}

Points way_back(ComplexAlgebra& m, const ThreeBack& v) {
    const ComplexVector center = m.sub(v.alone, v.h);
    const ComplexVector first = m.add(v.alone, m.scaled(v.h, Exact::rational(2)));
    return {first, m.sub(center, v.t), m.add(center, v.t)};
}

}  // namespace

// The powers 3^j modulo 7 run through 1, 3, 2, 6, 4, 5. The sums of opposite ones feed the even
// frequencies of the convolution, 0 and the pair of 2, their differences, the middle one negative,
// the odd frequencies, 3 and the pair of 1, where the spectrum stands turned by -i.
Points seven_by_rader(ComplexAlgebra& m, const Points& x) {
    const Points p = {m.add(x[1], x[6]), m.add(x[3], x[4]), m.add(x[2], x[5])};
    const Points d = {m.sub(x[1], x[6]), m.sub(x[4], x[3]), m.sub(x[2], x[5])};
    const auto spectrum = [](int k) { return rader_spectrum(7, 3, (6 - k) % 6); };
    ComplexVector sum;
    ComplexVector alternating;
    ThreeBack even =
        times_spectrum(m, p, spectrum(0).re, spectrum(2).re, spectrum(2).im, false, sum);
    const ThreeBack odd = times_spectrum(m, {d[0], d[2], d[1]}, -spectrum(3).im, -spectrum(1).im,
                                         spectrum(1).re, true, alternating);
    even.alone = m.add(even.alone, x[0]);
    const Points g = way_back(m, even);
    const Points f = way_back(m, odd);
    Points y(7);
    y[0] = m.add(x[0], sum);
    y[1] = m.add(g[0], f[0]);
    y[6] = m.sub(g[0], f[0]);
    y[4] = m.add(g[1], f[2]);
    y[3] = m.sub(g[1], f[2]);
    y[2] = m.add(g[2], f[1]);
    y[5] = m.sub(g[2], f[1]);
    return y;
}

}  // namespace dft_complex
