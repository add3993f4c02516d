#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {

// For each c, X_c[r] = DFT of length a over j of x[(a c + b j) mod N]; for each r, Y_r[s] = DFT of
// length b over c of X_c[r]. By the Chinese remainder theorem Y_r[s] is the one output k with
// k = r modulo a and k = s modulo b, and no factor remains between the two.
Signal prime_factor(Network& net, const Rule& rule_a, const Rule& rule_b, const Rule& first_of_b,
                    const Signal& x) {
    const int a = rule_a.length;
    const int b = rule_b.length;
    const int length = a * b;
    std::vector<Signal> X;
    for (int c = 0; c < b; ++c)
        X.push_back(
            dft(net, rule_a, signal(a, [&](int j) { return x[at((a * c + b * j) % length)]; })));
    std::vector<Signal> Y;
    for (int r = 0; r < a; ++r)
        Y.push_back(dft(net, r == 0 ? first_of_b : rule_b,
                        signal(b, [&](int c) { return X[at(c)][at(r)]; })));
    return signal(length, [&](int k) { return Y[at(k % a)][at(k % b)]; });
}

}  // namespace dft_complex
