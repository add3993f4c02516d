#include "dft_complex/decompositions.hpp"
#include "dft_complex/signals.hpp"

namespace dft_complex {

// For each residue c modulo b, X_c[k] = DFT of length a over j of x[c + b j]. With the twiddle
// factors w^(c k), w = exp(-2 pi i / N), Y_k[m] = DFT of length b over c of w^(c k) X_c[k] is
// output k + a m. For b = 3 the class c = 2 is taken as c = -1, which only turns the DFT over c by
// a factor that k + a m does not see, and makes the factors of the two classes conjugate.
Signal cooley_tukey(Network& net, const Rule& rule_a, const Rule& rule_b, const Signal& x) {
    const int a = rule_a.length;
    const int b = rule_b.length;
    const int length = a * b;
    const auto residue = [&](int c) { return b == 3 && c == 2 ? -1 : c; };
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
