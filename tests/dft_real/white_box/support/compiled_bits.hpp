#pragma once

/**
 * @file
 * @brief Whether what the compiler made of a kernel's source gives the bits of its graph.
 */

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <limits>
#include <map>
#include <random>
#include <sstream>
#include <vector>

#include "include/qsvgen.h"
#include "kernelgen/proof/bit_interpreter.hpp"
#include "tests/kernelgen/support/independent_value.hpp"
#include "transforms/dft_real/kernels/real_kernel.hpp"

namespace dft_real_test {

inline constexpr int kFlags[] = {qsvScaleFwdByN, qsvScaleInvByN, qsvScaleBySqrtN, qsvScaleNone};

template <class Real>
inline constexpr dft_real::Element kElementOf = sizeof(Real) == 4 ? dft_real::Element::Real32
                                                                  : dft_real::Element::Real64;

template <class Real>
using BitsOf = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;

template <class Real>
using CompiledKernel = QsvStatus (*)(const Real* src, Real* dst, std::int32_t flag);

template <class Real>
Real inverse_root(int length) {
    const kernelgen_test::Independent root = 1 / sqrt(kernelgen_test::Independent(length));
    const auto near = static_cast<Real>(1.0 / std::sqrt(static_cast<double>(length)));
    for (Real candidate : {near, std::nextafter(near, Real(0)), std::nextafter(near, Real(1))}) {
        if (kernelgen_test::is_nearest(candidate, root)) return candidate;
    }
    ADD_FAILURE() << "no number of the format is nearest to 1/sqrt(" << length << ")";
    return 0;
}

template <class Real>
Real scale_factor(const dft_real::RealKernel& kernel, int flag) {
    // A quotient of two numbers of the format is rounded once and to nearest.
    const Real by_length = Real(1) / static_cast<Real>(kernel.length);
    using dft_real::Kind;
    const Kind kind = kernel.family.kind;
    if (flag == qsvScaleFwdByN) return kind == Kind::Inverse ? Real(1) : by_length;
    if (flag == qsvScaleInvByN) return kind == Kind::Forward ? Real(1) : by_length;
    return flag == qsvScaleBySqrtN ? inverse_root<Real>(kernel.length) : Real(1);
}

template <class Real>
std::string in_bits(Real value) {
    std::ostringstream text;
    text << value << " (0x" << std::hex << std::setw(2 * sizeof(Real)) << std::setfill('0')
         << std::bit_cast<BitsOf<Real>>(value) << ")";
    return text.str();
}

/** Under all flags. */
template <class Real>
void expect_bits_of_graph(const dft_real::RealKernel& kernel, CompiledKernel<Real> compiled,
                          const std::vector<Real>& x, int outputs, const std::string& input) {
    std::map<Real, std::vector<double>> by_scale;
    for (int flag : kFlags) {
        const Real scale = scale_factor<Real>(kernel, flag);
        auto [entry, fresh] = by_scale.try_emplace(scale);
        std::vector<double>& wanted = entry->second;
        if (fresh)
            wanted = kernelgen::interpret(kernel.graph, {x.begin(), x.end()},
                                          static_cast<double>(scale), outputs);
        std::vector<Real> y(static_cast<std::size_t>(outputs), Real(12345));
        ASSERT_EQ(compiled(x.data(), y.data(), flag), qsvStatusOk) << kernel.name();
        for (std::size_t i = 0; i < y.size(); ++i) {
            const auto right = static_cast<Real>(wanted[i]);
            ASSERT_EQ(std::bit_cast<BitsOf<Real>>(y[i]), std::bit_cast<BitsOf<Real>>(right))
                << kernel.name() << ", flag " << flag << ", " << input << ", element " << i << ": "
                << in_bits(y[i]) << ", wanted " << in_bits(right);
        }
    }
}

/** Values of either sign with exponents from `lowest` up to `highest`. */
template <class Real>
std::vector<Real> random_signal(std::mt19937_64& random, int length, int lowest, int highest) {
    constexpr int kFraction = std::numeric_limits<Real>::digits - 1;
    std::vector<Real> x;
    for (int i = 0; i < length; ++i) {
        const auto spread =
            static_cast<std::uint64_t>(highest) - static_cast<std::uint64_t>(lowest) + 1;
        const int exponent = lowest + static_cast<int>(random() % spread);
        const auto fraction = static_cast<Real>(random() >> (64 - kFraction));
        const Real significand = Real(1) + std::ldexp(fraction, -kFraction);
        const Real magnitude = std::ldexp(significand, exponent);
        x.push_back((random() & 1U) != 0 ? -magnitude : magnitude);
    }
    return x;
}

struct Range {
    const char* name;
    int lowest;
    int highest;
    int signals;
};

// The widest stays clear of overflow, whose infinities become NaNs of no particular bits.
template <class Real>
inline constexpr Range kRanges[] = {
    {"near one", -1, 0, 10},
    {"of wide exponents", -30, 30, 10},
    {"of all exponents", std::numeric_limits<Real>::min_exponent,
     std::numeric_limits<Real>::max_exponent - 28, 10},
    {"of subnormal results", std::numeric_limits<Real>::min_exponent - 24,
     std::numeric_limits<Real>::min_exponent + 6, 10}};

template <class Real>
void expect_bits_for_random_signals(const dft_real::RealKernel& kernel,
                                    CompiledKernel<Real> compiled, int inputs, int outputs) {
    std::mt19937_64 random(static_cast<std::uint32_t>(kernel.length));
    for (const Range& range : kRanges<Real>) {
        for (int i = 0; i < range.signals; ++i) {
            const auto x = random_signal<Real>(random, inputs, range.lowest, range.highest);
            ASSERT_NO_FATAL_FAILURE(expect_bits_of_graph(
                kernel, compiled, x, outputs,
                std::string("random ") + range.name + " " + std::to_string(i)));
        }
    }
}

template <class Real>
void expect_bits_for_unit_vectors(const dft_real::RealKernel& kernel, CompiledKernel<Real> compiled,
                                  int inputs, int outputs) {
    for (int i = 0; i < inputs; ++i) {
        std::vector<Real> x(static_cast<std::size_t>(inputs), Real(0));
        x[static_cast<std::size_t>(i)] = 1;
        ASSERT_NO_FATAL_FAILURE(
            expect_bits_of_graph(kernel, compiled, x, outputs, "unit vector " + std::to_string(i)));
    }
}

template <class Real>
void expect_bits_for_zeros(const dft_real::RealKernel& kernel, CompiledKernel<Real> compiled,
                           int inputs, int outputs) {
    std::mt19937 random(7);
    for (int i = 0; i < 4; ++i) {
        std::vector<Real> x;
        for (int n = 0; n < inputs; ++n) x.push_back((random() & 1U) != 0 ? Real(-0.0) : Real(0.0));
        ASSERT_NO_FATAL_FAILURE(
            expect_bits_of_graph(kernel, compiled, x, outputs, "zeros " + std::to_string(i)));
    }
}

struct NamesOfReals {
    template <class Real>
    static std::string GetName(int) {
        return suffix(kElementOf<Real>);
    }
};

}  // namespace dft_real_test
