#include "transforms/dft_real/kernels/real_dft_kernel.hpp"

#include "kernelgen/values/same_values.hpp"
#include "transforms/dft_real/decompositions/real_dft.hpp"
#include "transforms/dft_real/kernels/layout_values.hpp"

namespace dft_real {
namespace {

using kernelgen::ExactComplex;
using kernelgen::Wide;

Graph forward_network(int N, Layout layout) {
    Graph graph;
    RowArithmetic m(graph);
    Reals x;
    for (int n = 0; n < N; ++n) x.push_back(m.load(n));
    const HalfSpectrum X = real_dft(m, row_of(N).factors_of(Kind::Forward), x);
    for (int k = 0; 2 * k <= N; ++k) {
        m.store_scaled(X[at(k)].re, real_element(layout, N, k));
        if (is_complex(N, k))
            m.store_scaled(X[at(k)].im, imaginary_element(layout, N, k));
        else if (layout == Layout::CCS)
            m.store_zero(imaginary_element(layout, N, k));
    }
    return graph;
}

Graph inverse_network(int N, Layout layout) {
    Graph graph;
    RowArithmetic m(graph);
    HalfSpectrum X;
    for (int k = 0; 2 * k <= N; ++k) {
        const Ref re = m.load(real_element(layout, N, k));
        if (is_complex(N, k))
            X.push_back({m.doubled(re), m.doubled(m.load(imaginary_element(layout, N, k)))});
        else
            X.push_back({re, {}});
    }
    const Reals x = inverse_real_dft(m, row_of(N).factors_of(Kind::Inverse), X);
    for (int n = 0; n < N; ++n) m.store_scaled(x[at(n)], n);
    return graph;
}

Graph network(int N, Direction direction, Layout layout) {
    return direction == Direction::Forward ? forward_network(N, layout)
                                           : inverse_network(N, layout);
}

/** What an element of a layout holds: a part of a bin, or nothing. */
struct Part {
    int bin;
    bool imaginary;
};

std::vector<Part> parts_of(int N, Layout layout) {
    std::vector<Part> parts(at(array_length(layout, N)), Part{-1, false});
    for (int k = 0; 2 * k <= N; ++k) {
        parts[at(real_element(layout, N, k))] = {k, false};
        if (is_complex(N, k)) parts[at(imaginary_element(layout, N, k))] = {k, true};
    }
    return parts;
}

/** The kernel, proven to be its matrix. */
RealKernel proven_matrix(int N, Direction direction, Layout layout, Element element,
                         const Target& target) {
    const Family family = family_of(direction, layout);
    const std::vector<Part> parts = parts_of(N, layout);
    const auto spectrum_length = static_cast<int>(parts.size());
    if (direction == Direction::Forward) {
        const auto entry = [&](int element, int n) -> Wide {
            const Part part = parts[at(element)];
            if (part.bin < 0) return 0;
            const ExactComplex w = ExactComplex::forward_root(static_cast<long>(part.bin) * n, N);
            return part.imaginary ? w.im.value() : w.re.value();
        };
        return proven(family, N, element, network(N, direction, layout), N, spectrum_length, entry,
                      target);
    }
    const auto entry = [&](int n, int element) -> Wide {
        const Part part = parts[at(element)];
        if (part.bin < 0) return 0;
        const ExactComplex w = ExactComplex::forward_root(-static_cast<long>(part.bin) * n, N);
        const int times = is_complex(N, part.bin) ? 2 : 1;
        return times * (part.imaginary ? Wide(-w.im.value()) : w.re.value());
    };
    return proven(family, N, element, network(N, direction, layout), spectrum_length, N, entry,
                  target);
}

}  // namespace

Family family_of(Direction direction, Layout layout) {
    const std::string name = to_string(layout);
    if (direction == Direction::Forward)
        return {"DFTFwd_RTo" + name, "DFT of {N} real points into the " + name + " layout",
                Kind::Forward};
    return {"DFTInv_" + name + "ToR", "Inverse DFT of the " + name + " layout to {N} real points",
            Kind::Inverse};
}

RealKernel described_dft_kernel(int N, Direction direction, Layout layout, Element element,
                                const Target& target) {
    return described(family_of(direction, layout), N, element, network(N, direction, layout),
                     target);
}

void prove_values(const RealKernel& kernel, Direction direction, Layout layout) {
    kernelgen::prove_values_of_reference(kernel.name(), kernel.graph, kernel.target, [&] {
        return described_dft_kernel(kernel.length, direction, layout, kernel.element).graph;
    });
    prove_same_values_as_ccs(kernel, direction, layout);
}

RealKernel dft_kernel(int N, Direction direction, Layout layout, Element element,
                      const Target& target) {
    RealKernel kernel = proven_matrix(N, direction, layout, element, target);
    prove_values(kernel, direction, layout);
    return kernel;
}

}  // namespace dft_real
