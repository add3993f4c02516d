#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <iomanip>
#include <map>
#include <random>
#include <sstream>

#include "kernelgen/bit_interpreter.hpp"
#include "tests/dft_complex/support/all_kernels.hpp"
#include "tests/dft_complex/support/compiled_kernels.hpp"
#include "tests/kernelgen/support/independent_value.hpp"

// What the compiler made of a kernel's source gives the bits that the kernel's graph gives.

namespace {

using dft_complex_test::Direction;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;
using Signal = std::vector<float>;

constexpr int kFlags[] = {qsvScaleFwdByN, qsvScaleInvByN, qsvScaleBySqrtN, qsvScaleNone};

float inverse_root(int length) {
    const kernelgen_test::Independent root = 1 / sqrt(kernelgen_test::Independent(length));
    const auto near = static_cast<float>(1.0 / std::sqrt(static_cast<double>(length)));
    for (float candidate : {near, std::nextafter(near, 0.0F), std::nextafter(near, 1.0F)}) {
        if (kernelgen_test::is_nearest(candidate, root)) return candidate;
    }
    ADD_FAILURE() << "no binary32 is nearest to 1/sqrt(" << length << ")";
    return 0;
}

float scale_factor(const Kernel& kernel, int flag) {
    // A quotient of two binary32 numbers is rounded once and to nearest.
    const float by_length = 1.0F / static_cast<float>(kernel.length);
    const bool forward = kernel.direction == Direction::Forward;
    if (flag == qsvScaleFwdByN) return forward ? by_length : 1.0F;
    if (flag == qsvScaleInvByN) return forward ? 1.0F : by_length;
    return flag == qsvScaleBySqrtN ? inverse_root(kernel.length) : 1.0F;
}

struct Placement {
    const char* name;
    std::size_t source;  ///< floats behind a 16-byte boundary
    std::size_t destination;
};

constexpr Placement kPlacements[] = {{"aligned", 0, 0},
                                     {"both 4 bytes off", 1, 1},
                                     {"both 8 bytes off", 2, 2},
                                     {"destination 12 bytes off", 0, 3},
                                     {"source 4 bytes off", 1, 0}};

Signal run_compiled(const Kernel& kernel, const Signal& x, int flag, const Placement& placement) {
    alignas(16) float source[132];
    alignas(16) float destination[132];
    std::copy(x.begin(), x.end(), source + placement.source);
    float* const y = destination + placement.destination;
    const auto function = dft_complex_test::compiled_kernel(kernel.length, kernel.direction);
    const QsvStatus status = function(reinterpret_cast<const Complex32*>(source + placement.source),
                                      reinterpret_cast<Complex32*>(y), flag);
    EXPECT_EQ(status, qsvStatusOk);
    return {y, y + x.size()};
}

std::string bits(float value) {
    std::ostringstream text;
    text << value << " (0x" << std::hex << std::setw(8) << std::setfill('0')
         << std::bit_cast<std::uint32_t>(value) << ")";
    return text.str();
}

void expect_bits_of_graph(const Kernel& kernel, const Signal& x, const std::string& input) {
    std::map<float, std::vector<double>> by_scale;
    for (int flag : kFlags) {
        const float scale = scale_factor(kernel, flag);
        auto [entry, fresh] = by_scale.try_emplace(scale);
        std::vector<double>& wanted = entry->second;
        if (fresh) {
            wanted = kernelgen::interpret(kernel.graph, {x.begin(), x.end()},
                                          static_cast<double>(scale), static_cast<int>(x.size()));
        }
        for (const Placement& placement : kPlacements) {
            const Signal y = run_compiled(kernel, x, flag, placement);
            for (std::size_t i = 0; i < y.size(); ++i) {
                const auto right = static_cast<float>(wanted[i]);
                ASSERT_EQ(std::bit_cast<std::uint32_t>(y[i]), std::bit_cast<std::uint32_t>(right))
                    << kernel.name() << ", flag " << flag << ", " << placement.name << ", " << input
                    << ", part " << i % 2 << " of output " << i / 2 << ": " << bits(y[i])
                    << ", wanted " << bits(right);
            }
        }
    }
}

/** Parts of either sign with exponents from `lowest` up to `highest`. */
Signal random_signal(std::mt19937& random, int length, int lowest, int highest) {
    Signal x;
    for (int i = 0; i < 2 * length; ++i) {
        const auto spread = static_cast<std::uint32_t>(highest - lowest + 1);
        const int exponent = lowest + static_cast<int>(random() % spread);
        const float significand = 1.0F + static_cast<float>(random() & 0x7fffffU) * 0x1p-23F;
        const float magnitude = std::ldexp(significand, exponent);
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
constexpr Range kRanges[] = {{"near one", -1, 0, 20},
                             {"of wide exponents", -30, 30, 15},
                             {"of all exponents", -149, 100, 15},
                             {"of subnormal results", -149, -120, 10}};

TEST(CompiledBits, EveryUnitVectorGivesTheBitsOfTheGraph) {
    for_each_kernel([](const Kernel& kernel) {
        for (int i = 0; i < 2 * kernel.length; ++i) {
            Signal x(static_cast<std::size_t>(2 * kernel.length), 0.0F);
            x[static_cast<std::size_t>(i)] = 1.0F;
            const std::string part = i % 2 == 0 ? "re" : "im";
            ASSERT_NO_FATAL_FAILURE(
                expect_bits_of_graph(kernel, x, part + " of unit vector " + std::to_string(i / 2)));
        }
    });
}

TEST(CompiledBits, RandomSignalsGiveTheBitsOfTheGraph) {
    for_each_kernel([](const Kernel& kernel) {
        std::mt19937 random(static_cast<std::uint32_t>(kernel.length));
        for (const Range& range : kRanges) {
            for (int i = 0; i < range.signals; ++i) {
                const Signal x = random_signal(random, kernel.length, range.lowest, range.highest);
                ASSERT_NO_FATAL_FAILURE(expect_bits_of_graph(
                    kernel, x, std::string("random ") + range.name + " " + std::to_string(i)));
            }
        }
    });
}

TEST(CompiledBits, ZerosOfEitherSignGiveTheBitsOfTheGraph) {
    for_each_kernel([](const Kernel& kernel) {
        std::mt19937 random(7);
        for (int i = 0; i < 4; ++i) {
            Signal x;
            for (int part = 0; part < 2 * kernel.length; ++part)
                x.push_back((random() & 1U) != 0 ? -0.0F : 0.0F);
            ASSERT_NO_FATAL_FAILURE(expect_bits_of_graph(kernel, x, "zeros " + std::to_string(i)));
        }
    });
}

}  // namespace
