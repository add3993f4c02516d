#pragma once

/** @file @brief A decomposition as one is added: the worked example of docs/extending.md. */

#include "transforms/dft_complex/decompositions/network.hpp"
#include "transforms/dft_complex/decompositions/signals.hpp"

namespace extending {

using namespace dft_complex;

// y[k] = ((x[0] + w^k x[1]) + w^(2k) x[2]) + ..., w = exp(-2 pi i / N).
inline Signal by_definition(Network& net, const Signal& x) {
    const int N = static_cast<int>(x.size());
    return signal(N, [&](int k) {
        Value y = x[0];
        for (int n = 1; n < N; ++n)
            y = net.sum(y, x[at(n)] * ExactComplex::forward_root(static_cast<long>(n) * k, N));
        return y;
    });
}

}  // namespace extending
