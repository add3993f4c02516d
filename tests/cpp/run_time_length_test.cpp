/** @file @brief Calls whose length is the size of their arrays. */

#include <gtest/gtest.h>

#include "cpp/support/front_end.hpp"
#include "support/bits.hpp"
#include "support/guarded_page.hpp"
#include "support/kernel_table.hpp"
#include "support/signals.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class RunTimeLength : public testing::Test {
  protected:
    RunTimeLength() { page_.allow(Access::None); }

    /** Arrays of these sizes that nothing may touch. */
    QsvStatus refused(const Dispatcher<E>& family, std::size_t in, std::size_t out,
                      qsvgen::Scale scale = qsvgen::Scale::none) {
        auto* const forbidden = reinterpret_cast<CppElement<E>*>(page_.begin());
        return call_front_end<E>(family.direction, family.layout,
                                 std::span<const CppElement<E>>(forbidden, in),
                                 std::span<CppElement<E>>(forbidden, out), scale);
    }

    /** Sizes of source and destination of a signal of that length. */
    static std::pair<std::size_t, std::size_t> sizes(const Dispatcher<E>& family,
                                                     std::size_t length) {
        const bool is_ccs = family.layout == Layout::Ccs;
        const std::size_t spectrum = is_ccs ? length / 2 * 2 + 2 : length;
        return {family.direction == Direction::Inverse ? spectrum : length,
                family.direction == Direction::Forward ? spectrum : length};
    }

  private:
    GuardedPage page_;
};
TYPED_TEST_SUITE(RunTimeLength, ElementTypes, ElementNames);

TYPED_TEST(RunTimeLength, GivesTheBitsOfTheKernelForEveryLengthAndScale) {
    using T = CppElement<TypeParam>;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 1);
        std::vector<typename TypeParam::Element> expected(kernel.destination_size());
        for (const qsvgen::Scale scale : kScales) {
            const auto flag = static_cast<std::int32_t>(scale);
            auto actual = constant_signal<TypeParam>(kernel.destination_size(), {});
            ASSERT_EQ(qsvStatusOk, kernel.run(x.data(), expected.data(), flag));
            EXPECT_EQ(qsvStatusOk,
                      call_front_end<TypeParam>(
                          kernel.direction, kernel.layout,
                          std::span<const T>(as_cpp<TypeParam>(x.data()), x.size()),
                          std::span<T>(as_cpp<TypeParam>(actual.data()), actual.size()), scale))
                << describe(kernel, flag);
            EXPECT_TRUE(same_bits<TypeParam>(expected, actual)) << describe(kernel, flag);
        }
    }
}

TYPED_TEST(RunTimeLength, RefusesLengthsWithoutAKernelBeforeItTouchesAnything) {
    for (const auto& family : dispatchers<TypeParam>()) {
        for (const std::size_t length : {0, 1, 65, 66, 128, 1000000}) {
            const auto [in, out] = this->sizes(family, length);
            EXPECT_EQ(qsvStatusBadLength, this->refused(family, in, out))
                << family.name << " of " << length;
        }
    }
}

TYPED_TEST(RunTimeLength, RefusesSizesThatAreAKernelsModuloTwoToThe32) {
    if constexpr (sizeof(std::size_t) == 8) {
        for (const auto& family : dispatchers<TypeParam>()) {
            for (const std::uint64_t above : {std::uint64_t{1} << 32, std::uint64_t{1} << 33}) {
                const auto [in, out] = this->sizes(family, static_cast<std::size_t>(above + 15));
                EXPECT_EQ(qsvStatusBadLength, this->refused(family, in, out)) << family.name;
            }
        }
    }
}

TYPED_TEST(RunTimeLength, RefusesSizesThatDoNotFitEachOther) {
    for (const auto& family : dispatchers<TypeParam>()) {
        for (const std::size_t length : {4, 15, 16, 60, 63}) {
            const auto [in, out] = this->sizes(family, length);
            const std::size_t fewer = out - (family.layout == Layout::Ccs ? 2 : 1);
            for (const std::size_t other : {fewer, out + 2, std::size_t{0}, 2 * out})
                EXPECT_EQ(qsvStatusBadLength, this->refused(family, in, other))
                    << family.name << " from " << in << " to " << other;
            // Two lengths have spectra of one size in the layout CCS.
            const std::size_t below = in - (family.layout == Layout::Ccs ? 2 : 1);
            for (const std::size_t other : {below, in + 2, std::size_t{0}, 2 * in})
                EXPECT_EQ(qsvStatusBadLength, this->refused(family, other, out))
                    << family.name << " from " << other << " to " << out;
        }
    }
}

TYPED_TEST(RunTimeLength, RefusesWhatIsNoScale) {
    for (const auto& family : dispatchers<TypeParam>()) {
        const auto [in, out] = this->sizes(family, 15);
        for (const std::int32_t flag : kBadFlags)
            EXPECT_EQ(qsvStatusBadFlag, this->refused(family, in, out, qsvgen::Scale{flag}))
                << family.name << ", flag " << flag;
    }
}

}  // namespace
}  // namespace qsvgen_test
