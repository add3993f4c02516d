#include "dft_complex/decompositions.hpp"
#include "dft_complex/signals.hpp"

namespace dft_complex {

// For each residue c modulo b, X_c[k] = DFT of length a over j of x[c + b j]. With the twiddle
// factors w^(c k), w = exp(-2 pi i / N), Y_k[m] = DFT of length b over c of w^(c k) X_c[k] is
// output k + a m.
Signal cooley_tukey(Network& net, const Rule& rule_a, const Rule& rule_b, const Signal& x) {
    const int a = rule_a.length;
    const int b = rule_b.length;
    const int length = a * b;
    std::vector<Signal> X;
    for (int c = 0; c < b; ++c)
        X.push_back(dft(net, rule_a, signal(a, [&](int j) { return x[at(c + b * j)]; })));
    std::vector<Signal> Y;
    for (int k = 0; k < a; ++k) {
        Y.push_back(dft(net, rule_b, signal(b, [&](int c) {
            return X[at(c)][at(k)] * ExactComplex::forward_root(c * k, length);
        })));
    }
    return signal(length, [&](int k) { return Y[at(k % a)][at(k / a)]; });
}

}  // namespace dft_complex
