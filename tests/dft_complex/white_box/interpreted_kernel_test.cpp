#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "tests/dft_complex/white_box/support/all_kernels.hpp"

namespace {

using dft_complex_test::Direction;
using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;

std::vector<long double> definition(const std::vector<double>& x, Direction direction) {
    const std::size_t length = x.size() / 2;
    const long double sign = direction == Direction::Forward ? -1 : 1;
    std::vector<long double> y(x.size());
    for (std::size_t k = 0; k < length; ++k) {
        for (std::size_t n = 0; n < length; ++n) {
            const long double angle = 2 * std::numbers::pi_v<long double> *
                                      static_cast<long double>(n * k % length) /
                                      static_cast<long double>(length);
            const long double re = std::cos(angle);
            const long double im = sign * std::sin(angle);
            y[2 * k] += re * x[2 * n] - im * x[2 * n + 1];
            y[2 * k + 1] += re * x[2 * n + 1] + im * x[2 * n];
        }
    }
    return y;
}

TEST(InterpretedKernel, RandomSignalsGiveTheDefinitionUpToRounding) {
    for_each_kernel([](const Kernel& kernel) {
        const bool single = kernel.element == Element::Complex32;
        std::mt19937 random(static_cast<std::uint32_t>(kernel.length));
        std::uniform_real_distribution<double> part(-1, 1);
        const long double epsilon =
            single ? std::numeric_limits<float>::epsilon() : std::numeric_limits<double>::epsilon();
        const long double tolerance = 4 * kernel.length * epsilon;
        for (int trial = 0; trial < 4; ++trial) {
            std::vector<double> x;
            for (int i = 0; i < 2 * kernel.length; ++i) {
                const double value = part(random);
                x.push_back(single ? static_cast<double>(static_cast<float>(value)) : value);
            }
            const auto y = kernelgen::interpret(kernel.graph, x, 1, 2 * kernel.length);
            const auto wanted = definition(x, kernel.direction);
            for (std::size_t i = 0; i < y.size(); ++i)
                ASSERT_LT(std::abs(static_cast<long double>(y[i]) - wanted[i]), tolerance)
                    << "trial " << trial << ", part " << i % 2 << " of output " << i / 2;
        }
    });
}

TEST(InterpretedKernel, TheScaleFactorMultipliesEveryOutput) {
    for_each_kernel([](const Kernel& kernel) {
        std::vector<double> x(static_cast<std::size_t>(2 * kernel.length), 0.0);
        x[0] = 1;
        const auto plain = kernelgen::interpret(kernel.graph, x, 1, 2 * kernel.length);
        const auto scaled = kernelgen::interpret(kernel.graph, x, 0.25, 2 * kernel.length);
        for (std::size_t i = 0; i < plain.size(); ++i)
            ASSERT_EQ(scaled[i], 0.25 * plain[i]) << "part " << i % 2 << " of output " << i / 2;
    });
}

}  // namespace
