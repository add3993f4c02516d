#include <gtest/gtest.h>

#include <bit>
#include <random>

#include "tests/support/walsh_hadamard.hpp"
#include "tests/walsh_hadamard/white_box/support/interpreted_kernel.hpp"

// The graphs give the bits of the sequence, and the compiled kernels the bits of the graphs.

namespace {

using walsh_hadamard::Element;
using walsh_hadamard::Kernel;

template <class E>
constexpr Element kElement = sizeof(typename E::Real) == 4 ? Element::Real32 : Element::Real64;

template <class E>
class WalshHadamardGraphs : public testing::Test {
  protected:
    using Real = typename E::Real;

    /** Numbers of Real of very different magnitudes. */
    static std::vector<double> signal(std::size_t size, unsigned seed) {
        std::mt19937_64 random(seed);
        std::vector<double> x(size);
        for (double& value : x) {
            const auto fraction =
                static_cast<double>(static_cast<std::int64_t>(random())) * 0x1p-63;
            value = static_cast<Real>(std::ldexp(fraction, static_cast<int>(random() % 31) - 15));
        }
        return x;
    }

    static void expect_equal_bits(const std::vector<double>& expected,
                                  const std::vector<double>& actual, const std::string& what) {
        ASSERT_EQ(expected.size(), actual.size()) << what;
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(expected[i]),
                      std::bit_cast<std::uint64_t>(actual[i]))
                << what << ", output " << i;
    }
};
TYPED_TEST_SUITE(WalshHadamardGraphs, qsvgen_test::RealTypes, qsvgen_test::ElementNames);

TYPED_TEST(WalshHadamardGraphs, GiveTheBitsOfTheSequence) {
    using Real = typename TypeParam::Real;
    for (const auto& compiled : qsvgen_test::order_kernels<TypeParam>()) {
        const Kernel kernel = walsh_hadamard::described_kernel(compiled.order, kElement<TypeParam>);
        for (unsigned seed = 0; seed < 4; ++seed) {
            const auto x = this->signal(compiled.size(), seed);
            const double scale = qsvgen_test::root_scale<TypeParam>(compiled.order);
            this->expect_equal_bits(walsh_hadamard_test::by_the_sequence<Real>(x, scale),
                                    walsh_hadamard_test::interpreted(kernel, x, scale),
                                    compiled.name);
        }
    }
}

TYPED_TEST(WalshHadamardGraphs, GiveTheBitsOfTheCompiledKernels) {
    using Real = typename TypeParam::Real;
    for (const auto& compiled : qsvgen_test::order_kernels<TypeParam>()) {
        const Kernel kernel = walsh_hadamard::described_kernel(compiled.order, kElement<TypeParam>);
        for (unsigned seed = 4; seed < 8; ++seed) {
            const auto x = this->signal(compiled.size(), seed);
            const double scale = qsvgen_test::root_scale<TypeParam>(compiled.order);
            const std::vector<Real> source(x.begin(), x.end());
            for (const std::size_t offset : {0, 4}) {
                const auto y =
                    qsvgen_test::transform(compiled, source, qsvScaleBySqrtN, {offset, offset});
                this->expect_equal_bits(walsh_hadamard_test::interpreted(kernel, x, scale),
                                        std::vector<double>(y.begin(), y.end()), compiled.name);
            }
        }
    }
}

}  // namespace
