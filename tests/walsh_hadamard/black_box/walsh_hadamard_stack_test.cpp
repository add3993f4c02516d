/** @file @brief Walsh-Hadamard transforms trust no stack alignment and keep the registers. */

#include <gtest/gtest.h>

#include <array>

#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/skewed_call.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSkews[] = {0, 4, 8, 12};

template <class E>
class WalshHadamardOnASkewedStack : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Arguments = std::array<std::uint32_t, 5>;

    static std::uint32_t word(const void* pointer) {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(pointer));
    }

    /** Calls with arguments made for arrays at `placement`, on stacks at all distances. */
    template <class ArgumentsOf>
    void expect_the_bits(const OrderKernel<E>& kernel, const void* function,
                         const ArgumentsOf& arguments_of) {
        const auto x = random_signal<E>(kernel.size(), 51);
        const auto expected = reference_wht<E>(x, qsvScaleBySqrtN);
        WorkBuffer own(kernel.buffer_bytes);
        for (const auto& placement : kPlacements) {
            for (const auto skew : kSkews) {
                for (std::uint8_t* buffer : {own.data(), static_cast<std::uint8_t*>(nullptr)}) {
                    PlacedArray<Real> source(x.size(), placement.source);
                    PlacedArray<Real> destination(x.size(), placement.destination);
                    source.set(x);
                    const Arguments arguments =
                        arguments_of(word(source.data()), word(destination.data()), word(buffer));
                    volatile QsvStatus status = -1;
                    KeptRegisters kept = {};
                    const bool faulted = catcher_.faults([&] {
                        status = call_on_skewed_stack(function, arguments.data(), skew, &kept);
                    });
                    ASSERT_FALSE(faulted) << kernel.name << " with esp = " << skew << " mod 16";
                    EXPECT_EQ(0, status) << kernel.name;
                    EXPECT_TRUE(same_bits<E>(expected, destination.get()))
                        << kernel.name << " with esp = " << skew << " mod 16";
                    EXPECT_EQ(kRegistersBefore.ebx, kept.ebx) << kernel.name;
                    EXPECT_EQ(kRegistersBefore.esi, kept.esi) << kernel.name;
                    EXPECT_EQ(kRegistersBefore.edi, kept.edi) << kernel.name;
                    EXPECT_EQ(kRegistersBefore.ebp, kept.ebp) << kernel.name;
                }
            }
        }
    }

    FaultCatcher catcher_;
};
TYPED_TEST_SUITE(WalshHadamardOnASkewedStack, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardOnASkewedStack, EveryKernelGivesItsBitsAndKeepsTheRegisters) {
    using Arguments = typename TestFixture::Arguments;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        this->expect_the_bits(kernel, kernel.address, [](auto src, auto dst, auto buffer) {
            return Arguments{src, dst, qsvScaleBySqrtN, buffer, 0};
        });
    }
}

TYPED_TEST(WalshHadamardOnASkewedStack, TheDispatcherGivesItsBitsAndKeepsTheRegisters) {
    using Arguments = typename TestFixture::Arguments;
    for (const auto& kernel : order_kernels<TypeParam>()) {
        const auto order = static_cast<std::uint32_t>(kernel.order);
        this->expect_the_bits(kernel, dispatcher_address<TypeParam>(),
                              [&](auto src, auto dst, auto buffer) {
                                  return Arguments{src, dst, order, qsvScaleBySqrtN, buffer};
                              });
    }
}

}  // namespace
}  // namespace qsvgen_test
