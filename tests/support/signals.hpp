#pragma once

/** @file @brief Inputs: random with fixed seeds, impulses, constants. */

#include <cstdint>
#include <random>
#include <vector>

namespace qsvgen_test {

/** Real and imaginary parts uniform in [-1, 1]; the same signal for the same seed everywhere. */
template <class E>
std::vector<typename E::Complex> random_signal(int length, std::uint32_t seed) {
    using Real = typename E::Real;
    std::mt19937_64 bits(0x9E3779B97F4A7C15u ^ (std::uint64_t{seed} << 8) ^
                         static_cast<std::uint64_t>(length));
    const auto next = [&bits] {
        const auto value = static_cast<std::int64_t>(bits());
        return static_cast<Real>(static_cast<double>(value) * 0x1p-63);
    };
    std::vector<typename E::Complex> signal(static_cast<std::size_t>(length));
    for (auto& x : signal) {
        x.re = next();
        x.im = next();
    }
    return signal;
}

template <class E>
std::vector<typename E::Complex> constant_signal(int length, typename E::Complex value) {
    return std::vector<typename E::Complex>(static_cast<std::size_t>(length), value);
}

/** Zero but for `value` at `index`. */
template <class E>
std::vector<typename E::Complex> impulse(int length, int index, typename E::Complex value) {
    auto signal = constant_signal<E>(length, {0, 0});
    signal[static_cast<std::size_t>(index)] = value;
    return signal;
}

/** Real and imaginary part of each element exchanged. */
template <class Complex>
std::vector<Complex> exchanged(std::vector<Complex> signal) {
    for (auto& x : signal) x = {x.im, x.re};
    return signal;
}

}  // namespace qsvgen_test
