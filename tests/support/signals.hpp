#pragma once

/** @file @brief Inputs: random with fixed seeds, impulses, constants. */

#include <cstdint>
#include <random>
#include <vector>

#include "support/kernel.hpp"

namespace qsvgen_test {

/** All numbers uniform in [-1, 1]; the same signal for the same seed everywhere. */
template <class E>
std::vector<typename E::Element> random_signal(std::size_t size, std::uint32_t seed) {
    using Real = typename E::Real;
    std::mt19937_64 bits(0x9E3779B97F4A7C15u ^ (std::uint64_t{seed} << 8) ^ size);
    const auto next = [&bits] {
        const auto value = static_cast<std::int64_t>(bits());
        return static_cast<Real>(static_cast<double>(value) * 0x1p-63);
    };
    std::vector<typename E::Element> signal(size);
    for (auto& x : signal) {
        if constexpr (kIsReal<E>) {
            x = next();
        } else {
            x.re = next();
            x.im = next();
        }
    }
    return signal;
}

/** A random source of the size that the kernel asks for. */
template <class E>
std::vector<typename E::Element> random_source(const Kernel<E>& kernel, std::uint32_t seed) {
    return random_signal<E>(kernel.source_size(), seed);
}

template <class E>
std::vector<typename E::Element> constant_signal(std::size_t size, typename E::Element value) {
    return std::vector<typename E::Element>(size, value);
}

/** Zero but for `value` at `index`. */
template <class E>
std::vector<typename E::Element> impulse(std::size_t size, std::size_t index,
                                         typename E::Element value) {
    auto signal = constant_signal<E>(size, {});
    signal.at(index) = value;
    return signal;
}

/** Real and imaginary part of each element exchanged. */
template <class Complex>
std::vector<Complex> exchanged(std::vector<Complex> signal) {
    for (auto& x : signal) x = {x.im, x.re};
    return signal;
}

}  // namespace qsvgen_test
