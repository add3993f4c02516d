#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <map>
#include <random>
#include <sstream>
#include <vector>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "tests/dft_complex/white_box/support/all_kernels.hpp"
#include "tests/dft_complex/white_box/support/compiled_kernels.hpp"
#include "tests/kernelgen/support/independent_value.hpp"

// What the compiler made of a kernel's source gives the bits that the kernel's graph gives.

namespace {

using dft_complex_test::Direction;
using dft_complex_test::ElementOf;
using dft_complex_test::for_each_kernel;
using dft_complex_test::Kernel;

constexpr int kFlags[] = {qsvScaleFwdByN, qsvScaleInvByN, qsvScaleBySqrtN, qsvScaleNone};

template <class Real>
using BitsOf = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;

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
Real scale_factor(const Kernel& kernel, int flag) {
    // A quotient of two numbers of the format is rounded once and to nearest.
    const Real by_length = Real(1) / static_cast<Real>(kernel.length);
    const bool forward = kernel.direction == Direction::Forward;
    if (flag == qsvScaleFwdByN) return forward ? by_length : Real(1);
    if (flag == qsvScaleInvByN) return forward ? Real(1) : by_length;
    return flag == qsvScaleBySqrtN ? inverse_root<Real>(kernel.length) : Real(1);
}

struct Placement {
    const char* name;
    std::size_t source;  ///< bytes behind a 16-byte boundary
    std::size_t destination;
};

constexpr Placement kPlacements[] = {{"aligned", 0, 0},
                                     {"both 4 bytes off", 4, 4},
                                     {"both 8 bytes off", 8, 8},
                                     {"destination 12 bytes off", 0, 12},
                                     {"destination 8 bytes off", 0, 8},
                                     {"source 4 bytes off", 4, 0}};

template <class Real>
std::vector<Real> run_compiled(const Kernel& kernel, const std::vector<Real>& x, int flag,
                               const Placement& placement) {
    using Complex = typename ElementOf<Real>::Complex;
    alignas(16) unsigned char source[129 * sizeof(Complex)];
    alignas(16) unsigned char destination[129 * sizeof(Complex)];
    const std::size_t bytes = x.size() * sizeof(Real);
    // Byte by byte, since a misplaced array holds no objects of the language.
    std::memcpy(source + placement.source, x.data(), bytes);
    std::memset(destination, 0xA5, sizeof destination);
    const auto function = dft_complex_test::compiled_kernel<Real>(kernel.length, kernel.direction);
    const QsvStatus status =
        function(reinterpret_cast<const Complex*>(source + placement.source),
                 reinterpret_cast<Complex*>(destination + placement.destination), flag);
    EXPECT_EQ(status, qsvStatusOk);
    std::vector<Real> y(x.size());
    std::memcpy(y.data(), destination + placement.destination, bytes);
    return y;
}

template <class Real>
std::string bits(Real value) {
    std::ostringstream text;
    text << value << " (0x" << std::hex << std::setw(2 * sizeof(Real)) << std::setfill('0')
         << std::bit_cast<BitsOf<Real>>(value) << ")";
    return text.str();
}

template <class Real>
void expect_bits_of_graph(const Kernel& kernel, const std::vector<Real>& x,
                          const std::string& input) {
    std::map<Real, std::vector<double>> by_scale;
    for (int flag : kFlags) {
        const Real scale = scale_factor<Real>(kernel, flag);
        auto [entry, fresh] = by_scale.try_emplace(scale);
        std::vector<double>& wanted = entry->second;
        if (fresh) {
            wanted = kernelgen::interpret(kernel.graph, {x.begin(), x.end()},
                                          static_cast<double>(scale), static_cast<int>(x.size()));
        }
        for (const Placement& placement : kPlacements) {
            const std::vector<Real> y = run_compiled(kernel, x, flag, placement);
            for (std::size_t i = 0; i < y.size(); ++i) {
                const auto right = static_cast<Real>(wanted[i]);
                ASSERT_EQ(std::bit_cast<BitsOf<Real>>(y[i]), std::bit_cast<BitsOf<Real>>(right))
                    << kernel.name() << ", flag " << flag << ", " << placement.name << ", " << input
                    << ", part " << i % 2 << " of output " << i / 2 << ": " << bits(y[i])
                    << ", wanted " << bits(right);
            }
        }
    }
}

/** Parts of either sign with exponents from `lowest` up to `highest`. */
template <class Real>
std::vector<Real> random_signal(std::mt19937_64& random, int length, int lowest, int highest) {
    constexpr int kFraction = std::numeric_limits<Real>::digits - 1;
    std::vector<Real> x;
    for (int i = 0; i < 2 * length; ++i) {
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
constexpr Range kSingleRanges[] = {{"near one", -1, 0, 20},
                                   {"of wide exponents", -30, 30, 15},
                                   {"of all exponents", -149, 100, 15},
                                   {"of subnormal results", -149, -120, 10}};
constexpr Range kDoubleRanges[] = {{"near one", -1, 0, 20},
                                   {"of wide exponents", -60, 60, 15},
                                   {"of all exponents", -1074, 980, 15},
                                   {"of subnormal results", -1074, -1015, 10}};

template <class Real>
class CompiledBits : public testing::Test {
  protected:
    static void for_each(const std::function<void(const Kernel&)>& check) {
        for_each_kernel(ElementOf<Real>::kElement, check);
    }
};

struct NamesOfReals {
    template <class Real>
    static std::string GetName(int) {
        return suffix(ElementOf<Real>::kElement);
    }
};

using Reals = testing::Types<float, double>;
TYPED_TEST_SUITE(CompiledBits, Reals, NamesOfReals);

TYPED_TEST(CompiledBits, EveryUnitVectorGivesTheBitsOfTheGraph) {
    this->for_each([](const Kernel& kernel) {
        for (int i = 0; i < 2 * kernel.length; ++i) {
            std::vector<TypeParam> x(static_cast<std::size_t>(2 * kernel.length), TypeParam(0));
            x[static_cast<std::size_t>(i)] = 1;
            const std::string part = i % 2 == 0 ? "re" : "im";
            ASSERT_NO_FATAL_FAILURE(
                expect_bits_of_graph(kernel, x, part + " of unit vector " + std::to_string(i / 2)));
        }
    });
}

TYPED_TEST(CompiledBits, RandomSignalsGiveTheBitsOfTheGraph) {
    this->for_each([](const Kernel& kernel) {
        std::mt19937_64 random(static_cast<std::uint32_t>(kernel.length));
        for (const Range& range : sizeof(TypeParam) == 4 ? kSingleRanges : kDoubleRanges) {
            for (int i = 0; i < range.signals; ++i) {
                const auto x =
                    random_signal<TypeParam>(random, kernel.length, range.lowest, range.highest);
                ASSERT_NO_FATAL_FAILURE(expect_bits_of_graph(
                    kernel, x, std::string("random ") + range.name + " " + std::to_string(i)));
            }
        }
    });
}

TYPED_TEST(CompiledBits, ZerosOfEitherSignGiveTheBitsOfTheGraph) {
    this->for_each([](const Kernel& kernel) {
        std::mt19937 random(7);
        for (int i = 0; i < 4; ++i) {
            std::vector<TypeParam> x;
            for (int part = 0; part < 2 * kernel.length; ++part)
                x.push_back((random() & 1U) != 0 ? TypeParam(-0.0) : TypeParam(0.0));
            ASSERT_NO_FATAL_FAILURE(expect_bits_of_graph(kernel, x, "zeros " + std::to_string(i)));
        }
    });
}

}  // namespace
