#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {

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
