#include "transforms/hartley/hartley_kernel.hpp"

#include "transforms/hartley/hartley_transform.hpp"

namespace hartley {

using kernelgen::ExactComplex;
using kernelgen::Wide;

dft_real::RealKernel hartley_kernel(int N, dft_real::Element element,
                                    const kernelgen::Target& target) {
    dft_real::Graph network;
    dft_real::RowArithmetic m(network);
    dft_real::Reals x;
    for (int n = 0; n < N; ++n) x.push_back(m.load(n));
    const dft_real::Reals y = hartley_transform(m, x);
    for (int k = 0; k < N; ++k) m.store_scaled(y[dft_real::at(k)], k);
    const auto entry = [&](int k, int n) -> Wide {
        const ExactComplex w = ExactComplex::forward_root(static_cast<long>(k) * n, N);
        return w.re.value() - w.im.value();
    };
    return proven(kFamily, N, element, network, N, N, entry, target);
}

}  // namespace hartley
