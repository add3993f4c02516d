#include "transforms/dft_real/decompositions/real_dft.hpp"

namespace dft_real {

Complex rotated(RowArithmetic& m, const Complex& x, long numerator, long denominator) {
    // In eighths of a turn, to the left.
    const long eighths = 8 * -numerator;
    if (eighths % denominator == 0) {
        const long turn = ((eighths / denominator) % 8 + 8) % 8;
        Complex y = x;
        for (long i = 0; i < turn / 2; ++i) y = {-y.im, y.re};
        if (turn % 2 == 0) return y;
        const Exact root = Exact::cosine(1, 8);
        const Ref p = m.row({{root, y.re}});
        const Ref q = m.row({{root, y.im}});
        const Ref difference = m.sub(p, q);
        return {difference, m.add(p, q)};
    }
    const Exact cosine = Exact::cosine(-numerator, denominator);
    const Exact sine = Exact::sine(-numerator, denominator);
    const Ref re = m.row({{cosine, x.re}, {-sine, x.im}});
    return {re, m.row({{sine, x.re}, {cosine, x.im}})};
}

}  // namespace dft_real
