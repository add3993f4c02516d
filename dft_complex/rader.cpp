#include "dft_complex/decompositions.hpp"
#include "dft_complex/signals.hpp"

namespace dft_complex {

ExactComplex rader_spectrum(int p, int g, int k) {
    const int L = p - 1;
    std::vector<Exact> re;
    std::vector<Exact> im;
    for (int j = 0; j < L; ++j) {
        const long turns = power_modulo(g, (L - j) % L, p) * static_cast<long>(L) +
                           static_cast<long>(j) * k * p;  // in units of 1 / (p L)
        const ExactComplex root = ExactComplex::forward_root(turns, static_cast<long>(p) * L);
        re.push_back(root.re);
        im.push_back(root.im);
    }
    const Exact share = Exact::rational(1, L);
    return {Exact::product({share, Exact::sum(re)}), Exact::product({share, Exact::sum(im)})};
}

int power_modulo(int base, int exponent, int p) {
    int power = 1;
    for (int i = 0; i < exponent; ++i) power = power * base % p;
    return power;
}

int primitive_root(int p) {
    for (int g = 2;; ++g) {
        int order = 1;
        for (int power = g; power != 1; power = power * g % p) ++order;
        if (order == p - 1) return g;
    }
}

// With u[j] = x[g^j] and its DFT U of length L = p - 1, the outputs but y[0] are x[0] plus the
// cyclic convolution of u with exp(-2 pi i g^(-j) / p), whose spectrum S holds the 1/L of the way
// back. x[0] joins V[0] = S[0] U[0], from where it reaches all outputs, and U[0] is the sum that
// y[0] needs. A forward DFT of V gives the inverse one at -k, which is where y[g^k] stands; it runs
// the stages in opposite order, so that it starts in the lanes in which the first one ended.
Signal rader(Network& net, const Rule& inner, const Signal& x) {
    const int L = inner.length;
    const int p = L + 1;
    const int g = primitive_root(p);
    const Signal U =
        dft(net, inner, signal(L, [&](int j) { return x[at(power_modulo(g, j, p))]; }));
    Signal V = signal(L, [&](int k) { return U[at(k)] * rader_spectrum(p, g, k); });
    V[0] = plus(V[0], x[0]);
    const Signal v = dft(net, reversed(inner), V);
    Signal y(at(p));
    y[0] = net.sum(x[0], U[0]);
    for (int k = 0; k < L; ++k) y[at(power_modulo(g, k, p))] = v[at(k)];
    return y;
}

}  // namespace dft_complex
