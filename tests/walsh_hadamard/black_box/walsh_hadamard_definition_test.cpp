/** @file @brief Every Walsh-Hadamard kernel gives the bits of the promised sequence of sums. */

#include <gtest/gtest.h>

#include <bit>
#include <random>

#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class WalshHadamard : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Signal = std::vector<Real>;
    using Array = PlacedArray<Real>;

    /** Of magnitudes so far apart that nearly every sum is rounded. */
    static Signal rough_signal(std::size_t size, std::uint32_t seed) {
        std::mt19937 random(seed);
        Signal x = random_signal<E>(size, seed);
        for (Real& value : x) value = std::ldexp(value, static_cast<int>(random() % 41) - 20);
        return x;
    }

    template <class Check>
    static void for_each_case(Check check) {
        for (const auto& kernel : order_kernels<E>()) {
            for (std::uint32_t seed = 0; seed < 3; ++seed) {
                for (const auto flag : kFlags) {
                    const Signal x = seed == 0 ? random_signal<E>(kernel.size(), 41)
                                               : rough_signal(kernel.size(), seed);
                    check(kernel, x, flag, reference_wht<E>(x, flag));
                }
            }
        }
    }
};
TYPED_TEST_SUITE(WalshHadamard, RealTypes, ElementNames);

TYPED_TEST(WalshHadamard, GivesTheBitsOfTheSequenceWhereverTheArraysStand) {
    this->for_each_case([](const auto& kernel, const auto& x, auto flag, const auto& expected) {
        for (std::size_t from = 0; from < 16; from += 4) {
            for (std::size_t to = 0; to < 16; to += 4) {
                EXPECT_TRUE(same_bits<TypeParam>(expected, transform(kernel, x, flag, {from, to})))
                    << describe(kernel, flag) << " at offsets " << from << " and " << to;
            }
        }
    });
}

TYPED_TEST(WalshHadamard, GivesTheSameBitsInPlaceWithAndWithoutABuffer) {
    this->for_each_case([](const auto& kernel, const auto& x, auto flag, const auto& expected) {
        for (std::size_t offset = 0; offset < 16; offset += 4) {
            for (const bool with_buffer : {true, false}) {
                PlacedArray<typename TypeParam::Real> array(x.size(), offset);
                WorkBuffer buffer(kernel.buffer_bytes);
                array.set(x);
                run_expecting_success(kernel, array.data(), array.data(), flag,
                                      with_buffer ? buffer.data() : nullptr);
                EXPECT_TRUE(same_bits<TypeParam>(expected, array.get()))
                    << describe(kernel, flag) << " at offset " << offset
                    << (with_buffer ? " with" : " without") << " a buffer";
                EXPECT_TRUE(array.margins_untouched()) << describe(kernel, flag);
            }
        }
    });
}

TYPED_TEST(WalshHadamard, GivesTheSameBitsWithoutABuffer) {
    this->for_each_case([](const auto& kernel, const auto& x, auto flag, const auto& expected) {
        for (const auto& placement : kPlacements) {
            PlacedArray<typename TypeParam::Real> source(x.size(), placement.source);
            PlacedArray<typename TypeParam::Real> destination(x.size(), placement.destination);
            source.set(x);
            run_expecting_success(kernel, source.data(), destination.data(), flag, nullptr);
            EXPECT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                << describe(kernel, flag);
        }
    });
}

TYPED_TEST(WalshHadamard, TheDispatcherGivesTheBitsOfTheKernel) {
    this->for_each_case([](const auto& kernel, const auto& x, auto flag, const auto& expected) {
        for (const bool with_buffer : {true, false}) {
            PlacedArray<typename TypeParam::Real> source(x.size(), 0);
            PlacedArray<typename TypeParam::Real> destination(x.size(), 0);
            WorkBuffer buffer(kernel.buffer_bytes);
            source.set(x);
            EXPECT_EQ(0, wht<TypeParam>(source.data(), destination.data(), kernel.order, flag,
                                        with_buffer ? buffer.data() : nullptr));
            EXPECT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                << describe(kernel, flag) << " by the dispatcher";
        }
    });
}

// The signals above would be worth little if any order of the strides gave the same bits.
TYPED_TEST(WalshHadamard, DescendingStridesWouldGiveOtherBits) {
    using Real = typename TypeParam::Real;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        if (kernel.order < 3) continue;
        auto x = this->rough_signal(kernel.size(), 1);
        const auto expected = reference_wht<TypeParam>(x, qsvScaleNone);
        for (std::size_t h = x.size() / 2; h > 0; h /= 2) {
            for (std::size_t j = 0; j < x.size(); ++j) {
                if ((j & h) != 0) continue;
                const Real a = x[j];
                const Real b = x[j + h];
                x[j] = a + b;
                x[j + h] = a - b;
            }
        }
        EXPECT_FALSE(same_bits<TypeParam>(expected, x)) << kernel.name;
    }
}

// A small integer is exact in every sum, so the definition itself can be the judge.
TYPED_TEST(WalshHadamard, IsTheHadamardMatrixInNaturalOrder) {
    using Real = typename TypeParam::Real;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        std::mt19937 random(5);
        std::vector<Real> x(kernel.size());
        for (Real& value : x) value = static_cast<Real>(static_cast<int>(random() % 201) - 100);
        const auto y = transform(kernel, x, qsvScaleNone);
        for (std::size_t k = 0; k < y.size(); ++k) {
            int sum = 0;
            for (std::size_t n = 0; n < x.size(); ++n) {
                const int term = static_cast<int>(x[n]);
                sum += std::popcount(k & n) % 2 == 0 ? term : -term;
            }
            ASSERT_EQ(static_cast<Real>(sum), y[k]) << kernel.name << ", output " << k;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
