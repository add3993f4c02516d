#include "transforms/hartley/hartley_kernel.hpp"

#include "kernelgen/values/same_values.hpp"
#include "transforms/hartley/hartley_transform.hpp"

namespace hartley {

using kernelgen::ExactComplex;
using kernelgen::Wide;

namespace {

dft_real::Graph network_of(int N) {
    dft_real::Graph network;
    dft_real::RowArithmetic m(network);
    dft_real::Reals x;
    for (int n = 0; n < N; ++n) x.push_back(m.load(n));
    const dft_real::Reals y = hartley_transform(m, x);
    for (int k = 0; k < N; ++k) m.store_scaled(y[dft_real::at(k)], k);
    return network;
}

}  // namespace

dft_real::RealKernel described_kernel(int N, dft_real::Element element,
                                      const kernelgen::Target& target) {
    return described(kFamily, N, element, network_of(N), target);
}

void prove_values(const dft_real::RealKernel& kernel) {
    kernelgen::prove_values_of_reference(kernel.name(), kernel.graph, kernel.target, [&] {
        return described_kernel(kernel.length, kernel.element).graph;
    });
}

dft_real::RealKernel hartley_kernel(int N, dft_real::Element element,
                                    const kernelgen::Target& target) {
    const auto entry = [&](int k, int n) -> Wide {
        const ExactComplex w = ExactComplex::forward_root(static_cast<long>(k) * n, N);
        return w.re.value() - w.im.value();
    };
    dft_real::RealKernel kernel = proven(kFamily, N, element, network_of(N), N, N, entry, target);
    prove_values(kernel);
    return kernel;
}

}  // namespace hartley
