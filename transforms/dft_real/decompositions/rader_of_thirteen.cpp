#include "transforms/dft_real/decompositions/rader_parts.hpp"
#include "transforms/residues/residues.hpp"

namespace dft_real {
namespace {

/** A bin re + i sign sin(2 pi / 3) d, whose last product waits. */
struct WaitingBin {
    Ref re;
    Ref d;
    bool negative;
};

/** What three points need of a bin times a constant: its real part, the opposite of its half beside
 * the real bin, and its imaginary part times sin(2 pi / 3). */
struct ThreePoints {
    Ref x0;
    Ref x1;
    Ref x2;
};

// The constants of three points meet those that wait: cos times sin, and sin times itself, which as
// a product of rounded values is not quite 3/4.
ThreePoints three_points(RowArithmetic& m, Ref z, const WaitingBin& bin,
                         const kernelgen::ExactComplex& W, bool from_real_part) {
    const Exact one = Exact::rational(1);
    const Exact half = Exact::rational(1, 2);
    const Exact root = Exact::sine(1, 3);
    const Exact half_root = product_of_rounded(half, root);
    const Exact root_squared = product_of_rounded(root, root);
    const Ref d = bin.negative ? -bin.d : bin.d;
    const Ref re_re = m.row({{W.re, bin.re}});
    const Ref im_im = m.row({{W.im, d}});
    const Ref re_im = m.row({{W.re, d}});
    const Ref im_re = m.row({{W.im, bin.re}});
    const Ref re = m.row({{one, re_re}, {-root, im_im}});
    const Ref w = from_real_part ? m.row({{one, z}, {-half, re}})
                                 : m.row({{one, z}, {-half, re_re}, {half_root, im_im}});
    const Ref q = m.row({{root, im_re}, {root_squared, re_im}});
    const Ref x0 = m.add(z, re);
    const Ref x1 = m.sub(w, q);
    return {x0, x1, m.add(w, q)};
}

}  // namespace

// The inner transform of 12 points, three and then four: three points leave their sine to wait, so
// that four cosets share it in bins 1 and 5, and in bins 2 and 4 it meets the three points of the
// way back.
HalfSpectrum rader_of_thirteen(RowArithmetic& m, const Reals& x) {
    constexpr int p = 13;
    constexpr int L = 12;
    constexpr int q = 6;
    const int g = residues::primitive_root(p);
    const Exact one = Exact::rational(1);
    const Exact root = Exact::sine(1, 3);
    Reals sums;
    Reals E;
    Reals D;
    for (int c = 0; c < 4; ++c) {
        const auto a = [&](int i) {
            return x[at(residues::power_modulo(g, (4 * i + 3 * c) % L, p))];
        };
        const Ref u = m.add(a(1), a(2));
        D.push_back(m.sub(a(1), a(2)));
        sums.push_back(m.add(a(0), u));
        E.push_back(m.row({{one, a(0)}, {-Exact::rational(1, 2), u}}));
    }
    const HalfSpectrum zeroth = real_dft(m, {2, 2}, sums);
    const auto four_real = [&](const Reals& v) {
        const Ref even = m.add(v[0], v[2]);
        const Ref odd = m.add(v[1], v[3]);
        const Ref sum = m.add(even, odd);
        return std::vector<Ref>{sum, m.sub(v[0], v[2]), m.sub(even, odd), m.sub(v[1], v[3])};
    };
    const Reals e = four_real(E);
    const Reals d = four_real(D);
    const Ref d1 = m.row({{root, d[1]}});
    const Ref d3 = m.row({{root, d[3]}});
    HalfSpectrum A(at(q + 1));
    set_bin(A, L, 9, zeroth[1]);
    A[q] = zeroth[2];
    set_bin(A, L, 1, {m.sub(e[1], d3), -m.add(d1, e[3])});
    set_bin(A, L, 7, {m.add(e[1], d3), m.sub(e[3], d1)});
    HalfSpectrum imaginaries(at(q + 1));
    for (int k = 1; k < q; k += 2)
        imaginaries[at(k)] = product(m, A[at(k)], convolution_constant(p, g, k));
    const Reals im = inverse_of_odd_bins(m, imaginaries, ElevenPoints::Rader);

    // The even bins as six points, three and then two; bin 4 of twelve stands for its conjugate.
    const Ref z0 = m.row({{one, x[0]}, {-Exact::rational(1, L), zeroth[0].re}});
    const Ref z6 = m.row({{convolution_constant(p, g, q).re, A[q].re}});
    kernelgen::ExactComplex fourth = convolution_constant(p, g, 4);
    fourth.im = -fourth.im;
    const ThreePoints first = three_points(m, z0, {e[0], d[0], false}, fourth, false);
    const ThreePoints second =
        three_points(m, z6, {e[2], d[2], false}, convolution_constant(p, g, 2), true);
    Reals re(at(q));
    const Ref of_first[] = {first.x0, first.x1, first.x2};
    const Ref of_second[] = {second.x0, second.x1, second.x2};
    for (int i = 0; i < 3; ++i) {
        re[at(2 * i % q)] = m.add(of_first[i], of_second[i]);
        re[at((2 * i + 3) % q)] = m.sub(of_first[i], of_second[i]);
    }
    HalfSpectrum X(at(q + 1));
    X[0].re = m.add(zeroth[0].re, x[0]);
    for (int j = 0; j < q; ++j)
        set_bin(X, p, residues::power_modulo(g, L - j, p), {re[at(j)], im[at(j)]});
    return X;
}

}  // namespace dft_real
