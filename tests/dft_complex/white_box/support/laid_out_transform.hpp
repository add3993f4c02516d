#pragma once

/**
 * @file
 * @brief A small transform as a graph of its own, one or more of them side by side in the lanes.
 */

#include <functional>
#include <string>

#include "kernelgen/proof/proof.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex_test {

/** How complex values stand in vectors. */
struct Arrangement {
    const char* name;
    kernelgen::Type type;
    dft_complex::Layout layout;
    bool backward;  ///< only of the interleaved layout, which makes an inverse transform of it

    bool is_split() const { return layout == dft_complex::Layout::Split; }
    /** Transforms side by side. */
    int transforms() const { return kernelgen::lane_count(type) / (is_split() ? 1 : 2); }
};

inline constexpr Arrangement kArrangements[] = {
    {"split binary32", kernelgen::Type::Binary32x4, dft_complex::Layout::Split, false},
    {"interleaved binary32", kernelgen::Type::Binary32x4, dft_complex::Layout::Interleaved, false},
    {"interleaved binary32, backward", kernelgen::Type::Binary32x4,
     dft_complex::Layout::Interleaved, true},
    {"interleaved binary64", kernelgen::Type::Binary64x2, dft_complex::Layout::Interleaved, false},
    {"interleaved binary64, backward", kernelgen::Type::Binary64x2,
     dft_complex::Layout::Interleaved, true}};

using Transformation =
    std::function<dft_complex::Points(dft_complex::ComplexAlgebra&, const dft_complex::Points&)>;

/** Point n of all transforms fills 2 transforms() real elements from 2 transforms() n on. */
inline kernelgen::Graph lay_out(const Arrangement& arrangement, int inputs,
                                const Transformation& transform) {
    using dft_complex::ComplexVector;
    using kernelgen::Ref;
    kernelgen::Graph graph;
    const auto algebra =
        make_algebra(graph, arrangement.type, arrangement.layout, arrangement.backward);
    const int width = 2 * arrangement.transforms();
    const int lanes = kernelgen::lane_count(arrangement.type);
    dft_complex::Points x;
    for (int n = 0; n < inputs; ++n) {
        ComplexVector point{graph.load(arrangement.type, width * n), {}};
        if (arrangement.is_split()) point.im = graph.load(arrangement.type, width * n + lanes);
        x.push_back(point);
    }
    const dft_complex::Points y = transform(*algebra, x);
    const auto store = [&](Ref value, int offset) {
        graph.store(value.negative ? graph.flip(-value, {1, 1, 1, 1}) : value, offset);
    };
    for (std::size_t k = 0; k < y.size(); ++k) {
        const int offset = width * static_cast<int>(k);
        store(y[k].re, offset);
        if (arrangement.is_split()) store(y[k].im, offset + lanes);
    }
    return graph;
}

/** What point n of transform t contributes to its output k. */
using ComplexEntry = std::function<kernelgen::ExactComplex(int k, int n, int t)>;

/** Deviation of the graph from the complex matrices, for a backward arrangement their conjugates.
 */
inline kernelgen::Wide deviation_of(const kernelgen::Graph& graph, const Arrangement& arrangement,
                                    int inputs, int outputs, const ComplexEntry& entry) {
    struct Place {
        int point, transform;
        bool imaginary;
    };
    const int transforms = arrangement.transforms();
    const auto place = [&](int element) -> Place {
        const int rest = element % (2 * transforms);
        const int point = element / (2 * transforms);
        if (arrangement.is_split()) return {point, rest % transforms, rest >= transforms};
        return {point, rest / 2, rest % 2 != 0};
    };
    const auto wanted = [&](int row, int column) -> kernelgen::Wide {
        const Place to = place(row);
        const Place from = place(column);
        if (to.transform != from.transform) return 0;
        const kernelgen::ExactComplex w = entry(to.point, from.point, to.transform);
        if (to.imaginary == from.imaginary) return w.re.value();
        return to.imaginary != arrangement.backward ? w.im.value() : kernelgen::Wide(-w.im.value());
    };
    return kernelgen::deviation(graph, 2 * transforms * inputs, 2 * transforms * outputs, wanted);
}

inline std::string in_words(const kernelgen::Wide& value) {
    return value.str(6, std::ios_base::scientific);
}

}  // namespace dft_complex_test
