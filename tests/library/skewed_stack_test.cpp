/** @file @brief No caller's stack alignment is trusted, and the caller's registers are kept. */

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "support/bits.hpp"
#include "support/fault.hpp"
#include "support/signals.hpp"
#include "support/skewed_call.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSkews[] = {0, 4, 8, 12};

template <class E>
class SkewedStack : public testing::Test {
  protected:
    struct Result {
        bool faulted;
        QsvStatus status;
        KeptRegisters kept;
    };

    template <class Function>
    Result call(Function* function, std::uint32_t skew,
                const std::array<std::uint32_t, 5>& arguments) {
        volatile QsvStatus status = -1;
        KeptRegisters kept = {};
        const bool faulted = catcher_.faults([&] {
            status = call_on_skewed_stack(reinterpret_cast<const void*>(function), arguments.data(),
                                          skew, &kept);
        });
        return {faulted, status, kept};
    }

    static std::uint32_t word(const void* pointer) {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(pointer));
    }
    static std::uint32_t word(std::int32_t value) { return static_cast<std::uint32_t>(value); }

    FaultCatcher catcher_;
};
TYPED_TEST_SUITE(SkewedStack, ElementTypes, ElementNames);

TYPED_TEST(SkewedStack, EveryKernelGivesTheSameBits) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 23);
        const auto expected = transform(kernel, x, qsvScaleBySqrtN);
        for (const auto& placement : kPlacements) {
            for (const auto skew : kSkews) {
                PlacedArray<typename TypeParam::Element> source(x.size(), placement.source);
                PlacedArray<typename TypeParam::Element> destination(kernel.destination_size(),
                                                                     placement.destination);
                source.set(x);
                const auto result =
                    this->call(kernel.run, skew,
                               {this->word(source.data()), this->word(destination.data()),
                                this->word(qsvScaleBySqrtN), 0});
                ASSERT_FALSE(result.faulted)
                    << describe(kernel, qsvScaleBySqrtN) << " with esp = " << skew
                    << " mod 16, source at " << placement.source << ", destination at "
                    << placement.destination;
                EXPECT_EQ(0, result.status) << kernel.name;
                EXPECT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                    << describe(kernel, qsvScaleBySqrtN) << " with esp = " << skew << " mod 16";
            }
        }
    }
}

TYPED_TEST(SkewedStack, EveryKernelKeepsTheCallersRegisters) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 24);
        for (const auto& placement : kPlacements) {
            for (const auto flag : {0, 1, 2, 4, 8}) {
                PlacedArray<typename TypeParam::Element> array(
                    std::max(x.size(), kernel.destination_size()), placement.source);
                array.set(x);
                const auto kept = this->call(kernel.run, 12,
                                             {this->word(array.data()), this->word(array.data()),
                                              this->word(flag), 0})
                                      .kept;
                EXPECT_EQ(kRegistersBefore.ebx, kept.ebx) << describe(kernel, flag);
                EXPECT_EQ(kRegistersBefore.esi, kept.esi) << describe(kernel, flag);
                EXPECT_EQ(kRegistersBefore.edi, kept.edi) << describe(kernel, flag);
                EXPECT_EQ(kRegistersBefore.ebp, kept.ebp) << describe(kernel, flag);
            }
        }
    }
}

TYPED_TEST(SkewedStack, DispatchersGiveTheSameBitsAndKeepTheCallersRegisters) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 25);
        const auto expected = transform(kernel, x, qsvScaleNone);
        const auto& dispatcher = dispatcher_of(kernel);
        for (const auto& placement : kPlacements) {
            for (const auto skew : kSkews) {
                PlacedArray<typename TypeParam::Element> source(x.size(), placement.source);
                PlacedArray<typename TypeParam::Element> destination(kernel.destination_size(),
                                                                     placement.destination);
                source.set(x);
                const auto result =
                    this->call(dispatcher.run, skew,
                               {this->word(source.data()), this->word(destination.data()),
                                this->word(kernel.length), this->word(qsvScaleNone)});
                ASSERT_FALSE(result.faulted) << dispatcher.name << " length " << kernel.length
                                             << " with esp = " << skew << " mod 16";
                EXPECT_EQ(0, result.status) << dispatcher.name << " length " << kernel.length;
                EXPECT_TRUE(same_bits<TypeParam>(expected, destination.get()))
                    << dispatcher.name << " length " << kernel.length;
                EXPECT_EQ(kRegistersBefore.ebx, result.kept.ebx) << dispatcher.name;
                EXPECT_EQ(kRegistersBefore.esi, result.kept.esi) << dispatcher.name;
                EXPECT_EQ(kRegistersBefore.edi, result.kept.edi) << dispatcher.name;
                EXPECT_EQ(kRegistersBefore.ebp, result.kept.ebp) << dispatcher.name;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
