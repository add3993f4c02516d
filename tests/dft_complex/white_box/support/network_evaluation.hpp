#pragma once

/**
 * @file
 * @brief Networks of small transforms in plain complex arithmetic, each transform by its
 * definition.
 */

#include <complex>
#include <numbers>
#include <random>
#include <vector>

#include "transforms/dft_complex/decompositions/network.hpp"

namespace dft_complex_test {

using Complexes = std::vector<std::complex<double>>;

inline Complexes definition(const Complexes& x) {
    const std::size_t length = x.size();
    Complexes y(length);
    for (std::size_t k = 0; k < length; ++k) {
        for (std::size_t n = 0; n < length; ++n) {
            const double turn = static_cast<double>(n * k % length) / static_cast<double>(length);
            y[k] += x[n] * std::polar(1.0, -2 * std::numbers::pi * turn);
        }
    }
    return y;
}

inline Complexes random_signal(int length) {
    std::mt19937 random(static_cast<std::uint32_t>(length));
    std::uniform_real_distribution<double> part(-1, 1);
    Complexes x;
    for (int n = 0; n < length; ++n) {
        const double re = part(random);
        x.emplace_back(re, part(random));
    }
    return x;
}

/** Values of `outputs` for the input x. */
inline Complexes evaluate(const dft_complex::Network& net, const dft_complex::Signal& outputs,
                          const Complexes& x) {
    using dft_complex::Source;
    std::vector<Complexes> done;
    const auto source = [&](const Source& s) {
        const Complexes& held =
            s.transform == Source::kInput ? x : done.at(static_cast<std::size_t>(s.transform));
        return held.at(static_cast<std::size_t>(s.slot));
    };
    const auto values = [&](const dft_complex::Signal& signal) {
        Complexes result;
        for (const dft_complex::Value& value : signal) {
            if (value.absent) {
                result.emplace_back(0);
                continue;
            }
            const std::complex<double> factor(value.factor.re.to_binary64(),
                                              value.factor.im.to_binary64());
            result.push_back(factor * source(value.source) +
                             (value.addend ? source(*value.addend) : 0));
        }
        return result;
    };
    for (const dft_complex::SmallTransform& transform : net.transforms()) {
        const Complexes inputs = values(transform.inputs);
        const bool sum = transform.radix == dft_complex::SmallTransform::kSum;
        done.push_back(sum ? Complexes{inputs.at(0) + inputs.at(1)} : definition(inputs));
    }
    return values(outputs);
}

}  // namespace dft_complex_test
