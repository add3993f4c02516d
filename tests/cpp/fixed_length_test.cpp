/** @file @brief Calls whose length the compiler knows, beside those of the kernels themselves. */

#include <gtest/gtest.h>

#include "cpp/support/front_end.hpp"
#include "support/bits.hpp"
#include "support/kernel_table.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class FixedLength : public testing::Test {
  protected:
    using Signal = std::vector<typename E::Element>;

    static QsvStatus call(const Kernel<E>& kernel, const Signal& x, Signal& y,
                          qsvgen::Scale scale) {
        return kFrontEndCalls<E>[place_in_header(kernel.length)](kernel.direction, kernel.layout,
                                                                 x.data(), y.data(), scale);
    }
};
TYPED_TEST_SUITE(FixedLength, ElementTypes, ElementNames);

TYPED_TEST(FixedLength, GivesTheBitsOfItsKernelForEveryLengthAndScale) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 1);
        typename TestFixture::Signal expected(kernel.destination_size());
        for (const qsvgen::Scale scale : kScales) {
            const auto flag = static_cast<std::int32_t>(scale);
            auto actual = constant_signal<TypeParam>(kernel.destination_size(), {});
            ASSERT_EQ(qsvStatusOk, kernel.run(x.data(), expected.data(), flag));
            EXPECT_EQ(qsvStatusOk, this->call(kernel, x, actual, scale)) << describe(kernel, flag);
            EXPECT_TRUE(same_bits<TypeParam>(expected, actual)) << describe(kernel, flag);
        }
    }
}

TYPED_TEST(FixedLength, GivesTheSameBitsInPlace) {
    for (const auto& kernel : kernels<TypeParam>()) {
        auto x = random_source(kernel, 2);
        x.resize(std::max(kernel.source_size(), kernel.destination_size()));
        auto expected = x;
        ASSERT_EQ(qsvStatusOk, kernel.run(expected.data(), expected.data(), qsvScaleNone));
        EXPECT_EQ(qsvStatusOk, this->call(kernel, x, x, qsvgen::Scale::none));
        EXPECT_TRUE(same_bits<TypeParam>(expected, x)) << describe(kernel, qsvScaleNone);
    }
}

TYPED_TEST(FixedLength, RefusesWhatIsNoScale) {
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 3);
        const auto before = random_signal<TypeParam>(kernel.destination_size(), 4);
        for (const std::int32_t flag : kBadFlags) {
            auto y = before;
            EXPECT_EQ(qsvStatusBadFlag, this->call(kernel, x, y, qsvgen::Scale{flag}))
                << describe(kernel, flag);
            EXPECT_TRUE(same_bits<TypeParam>(before, y)) << describe(kernel, flag);
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
