#include "transforms/dft_complex/decompositions/decompositions.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace dft_complex {
namespace {

// H[k] = (1/M) sum over n of exp(+pi i n^2 / p) exp(-2 pi i n k / M), n from -(p-1) to p-1
ExactComplex spectrum(int p, int M, int k) {
    std::vector<Exact> re;
    std::vector<Exact> im;
    for (int n = 1 - p; n < p; ++n) {
        const long turns = -static_cast<long>(n) * n * M + static_cast<long>(n) * k * 2 * p;
        const ExactComplex root = ExactComplex::forward_root(turns, 2L * p * M);
        re.push_back(root.re);
        im.push_back(root.im);
    }
    const Exact share = Exact::rational(1, M);
    return {Exact::product({share, Exact::sum(re)}), Exact::product({share, Exact::sum(im)})};
}

}  // namespace

// With c[n] = exp(-pi i n^2 / p), y[k] = c[k] times the convolution of c[n] x[n] with conj(c), done
// cyclically over M points. Absent inputs and unused outputs are pruned from the network. As in
// Rader's form, a forward DFT in opposite order stands for the inverse one.
Signal chirp(Network& net, const Rule& inner, const Signal& x) {
    const int M = inner.length;
    const int p = static_cast<int>(x.size());
    const auto c = [&](int n) {
        return ExactComplex::forward_root(static_cast<long>(n) * n, 2L * p);
    };
    const Signal A =
        dft(net, inner, signal(M, [&](int n) { return n < p ? x[at(n)] * c(n) : Value::zero(); }));
    const Signal B = signal(M, [&](int k) { return A[at(k)] * spectrum(p, M, k); });
    const Signal b = dft(net, reversed(inner), B);
    return signal(p, [&](int k) { return b[at((M - k) % M)] * c(k); });
}

}  // namespace dft_complex
