#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {

// For each residue c modulo b, X_c[k] = DFT of length a over j of x[c + b j]. With the twiddle
// factors w^(c k), w = exp(-2 pi i / N), Y_k[m] = DFT of length b over c of w^(c k) X_c[k] is
// output k + a m. The class c - b stands for the class c as well: the powers of exp(-2 pi i / b) in
// the DFT over c are the same.
Signal cooley_tukey(Network& net, const Rule& rule_a, const Rule& rule_b, Residues residues,
                    const Signal& x) {
    const int a = rule_a.length;
    const int b = rule_b.length;
    const int length = a * b;
    const auto residue = [&](int c) {
        return residues == Residues::AroundZero && b % 2 != 0 && 2 * c > b ? c - b : c;
    };
    std::vector<Signal> X;
    for (int c = 0; c < b; ++c) {
        X.push_back(dft(net, rule_a, signal(a, [&](int j) {
                            return x[at((residue(c) + b * j + length) % length)];
                        })));
    }
    std::vector<Signal> Y;
    for (int k = 0; k < a; ++k) {
        Y.push_back(dft(net, rule_b, signal(b, [&](int c) {
                            return X[at(c)][at(k)] *
                                   ExactComplex::forward_root(residue(c) * k, length);
                        })));
    }
    return signal(length, [&](int k) { return Y[at(k % a)][at(k / a)]; });
}

}  // namespace dft_complex
