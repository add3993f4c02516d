/**
 * @file
 * @brief The DCT-IV through its interface: what a caller's control state and allocator see of it.
 */

#include <vector>

#include "dct4/black_box/support/dct4_calls.hpp"
#include "support/control_state.hpp"
#include "support/library_memory.hpp"

namespace qsvgen_test {
namespace {

#if defined(__i386__) || defined(__x86_64__)
constexpr std::uint16_t kX87Values[] = {0x037F, 0x027F, 0x007F, 0x077F, 0x0B7F, 0x0F7F};
#endif

template <class E>
class Dct4Caller : public Dct4Calls<E> {};
TYPED_TEST_SUITE(Dct4Caller, RealTypes, ElementNames);

TYPED_TEST(Dct4Caller, FindsTheControlStateOfAllUnitsAsItWas) {
    using Functions = typename TestFixture::Functions;
    for (const std::int32_t length : kPlanLengths) {
        const auto x = this->signal(length);
        auto y = x;
        const auto use = [&] {
            typename TestFixture::Plan* plan = nullptr;
            std::int32_t size = 0;
            Functions::kGetSize(length, &size);
            Functions::kInitAlloc(&plan, length);
            Functions::kRun(x.data(), y.data(), plan);
            Functions::kFree(plan);
        };
        for (const ControlState value : kStatesOfCallers) {
            ControlState after;
            {
                const ScopedControlState scope(value);
                use();
                after = control_state();
            }
            EXPECT_EQ(value & kControlMask, after & kControlMask) << length;
        }
#if defined(__i386__) || defined(__x86_64__)
        for (const auto value : kX87Values) {
            std::uint16_t control;
            std::uint16_t tags;
            {
                const ScopedX87ControlWord scope(value);
                use();
                control = x87_control_word();
                tags = x87_tag_word();
            }
            EXPECT_EQ(value, control) << length;
            EXPECT_EQ(0xFFFF, tags) << length;
        }
#endif
    }
}

TYPED_TEST(Dct4Caller, PaysOneAllocationForAPlanAndNoneForARun) {
    using Functions = typename TestFixture::Functions;
    for (const std::int32_t length : kPlanLengths) {
        library_memory() = LibraryMemory();
        std::int32_t size = 0;
        ASSERT_EQ(0, Functions::kGetSize(length, &size));
        typename TestFixture::Plan* plan = nullptr;
        ASSERT_EQ(0, Functions::kInitAlloc(&plan, length));
        for (int round = 0; round < 3; ++round) this->transformed(plan, this->signal(length));
        EXPECT_EQ(std::vector<std::int32_t>{size}, library_memory().sizes) << length;
        EXPECT_TRUE(library_memory().freed.empty()) << length;
        EXPECT_EQ(0, Functions::kFree(plan)) << length;
        EXPECT_EQ(library_memory().blocks, library_memory().freed) << length;
    }
}

}  // namespace
}  // namespace qsvgen_test
