/** @file @brief Walsh-Hadamard transforms of values that are no ordinary numbers. */

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class WalshHadamardOfSpecialValues : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Limits = std::numeric_limits<Real>;

    static void expect_the_sequence(const OrderKernel<E>& kernel, const std::vector<Real>& x) {
        for (const auto flag : kFlags) {
            const auto expected = reference_wht<E>(x, flag);
            for (const auto& placement : kPlacements) {
                EXPECT_TRUE(same_bits_or_nan<E>(expected, transform(kernel, x, flag, placement)))
                    << describe(kernel, flag) << " at offsets " << placement.source << " and "
                    << placement.destination;
            }
        }
    }

    /** Each element is one of `values`, picked at random. */
    static void expect_the_sequence_of_mixtures(const std::vector<Real>& values) {
        for (const auto& kernel : order_kernels<E>()) {
            for (unsigned seed = 0; seed < 3; ++seed) {
                std::mt19937 random(seed);
                std::vector<Real> x(kernel.size());
                for (Real& value : x) value = values[random() % values.size()];
                expect_the_sequence(kernel, x);
            }
        }
    }
};
TYPED_TEST_SUITE(WalshHadamardOfSpecialValues, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardOfSpecialValues, OneOfThemReachesTheOutputsAsInTheSequence) {
    using Limits = typename TestFixture::Limits;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        for (const auto value : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                                 Limits::denorm_min(), Limits::max()}) {
            for (const std::size_t place : {std::size_t{0}, kernel.size() / 2, kernel.size() - 1}) {
                auto x = random_signal<TypeParam>(kernel.size(), 44);
                x[place] = value;
                this->expect_the_sequence(kernel, x);
            }
        }
    }
}

TYPED_TEST(WalshHadamardOfSpecialValues, ZerosOfEitherSignAddAsInTheSequence) {
    this->expect_the_sequence_of_mixtures(
        {typename TypeParam::Real{0}, -typename TypeParam::Real{0}});
    this->expect_the_sequence_of_mixtures({-typename TypeParam::Real{0}});
}

TYPED_TEST(WalshHadamardOfSpecialValues, DenormalsAreNeitherFlushedNorRoundedOtherwise) {
    using Limits = typename TestFixture::Limits;
    this->expect_the_sequence_of_mixtures({Limits::denorm_min(), -3 * Limits::denorm_min(),
                                           Limits::min(), Limits::min() - Limits::denorm_min(), 0});
}

TYPED_TEST(WalshHadamardOfSpecialValues, OverflowsAndMixturesOfAllGoAsInTheSequence) {
    using Limits = typename TestFixture::Limits;
    this->expect_the_sequence_of_mixtures({Limits::max(), -Limits::max(), 1});
    this->expect_the_sequence_of_mixtures({Limits::infinity(), -Limits::infinity(), 1});
    this->expect_the_sequence_of_mixtures(
        {1, -typename TypeParam::Real{0}, Limits::max(), Limits::infinity(), Limits::denorm_min()});
}

}  // namespace
}  // namespace qsvgen_test
