/**
 * @file
 * @brief The DCT-IV through its interface: what a caller's stack and registers see of it.
 */

#include <array>
#include <vector>

#include "dct4/black_box/support/dct4_calls.hpp"
#include "support/bits.hpp"
#include "support/fault.hpp"
#include "support/skewed_call.hpp"

namespace qsvgen_test {
namespace {

constexpr std::uint32_t kSkews[] = {0, 4, 8, 12};

template <class E>
class Dct4Stack : public Dct4Calls<E> {
  protected:
    void call(std::int32_t length, const char* what, const void* function, std::uint32_t skew,
              std::array<std::uint32_t, 5> arguments) {
        volatile QsvStatus status = -1;
        KeptRegisters kept = {};
        const bool faulted = catcher_.faults(
            [&] { status = call_on_skewed_stack(function, arguments.data(), skew, &kept); });
        EXPECT_FALSE(faulted) << what << ", length " << length << ", esp = " << skew << " mod 16";
        EXPECT_EQ(0, status) << what << ", length " << length << ", esp = " << skew << " mod 16";
        EXPECT_EQ(kRegistersBefore.ebx, kept.ebx) << what << ", length " << length;
        EXPECT_EQ(kRegistersBefore.esi, kept.esi) << what << ", length " << length;
        EXPECT_EQ(kRegistersBefore.edi, kept.edi) << what << ", length " << length;
        EXPECT_EQ(kRegistersBefore.ebp, kept.ebp) << what << ", length " << length;
    }

    template <class Pointer>
    static std::uint32_t word(Pointer pointer) {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(pointer));
    }
    template <class Function>
    static const void* address(Function* function) {
        return reinterpret_cast<const void*>(function);
    }

    FaultCatcher catcher_;
};
TYPED_TEST_SUITE(Dct4Stack, RealTypes, ElementNames);

TYPED_TEST(Dct4Stack, MayComeWithAStackOfAnyWordAndFindsItsRegistersKept) {
    using Functions = typename TestFixture::Functions;
    using Plan = typename TestFixture::Plan;
    for (const std::int32_t length : kPlanLengths) {
        const auto x = this->signal(length);
        Plan* usual = nullptr;
        ASSERT_EQ(0, Functions::kInitAlloc(&usual, length));
        const auto expected = this->transformed(usual, x);
        EXPECT_EQ(0, Functions::kFree(usual));
        const auto N = static_cast<std::uint32_t>(length);
        for (const std::uint32_t skew : kSkews) {
            std::int32_t size = 0;
            this->call(length, "size", this->address(Functions::kGetSize), skew,
                       {N, this->word(&size)});
            std::vector<std::uint8_t> buffer(static_cast<std::size_t>(size) + 16);
            Plan* made = nullptr;
            this->call(length, "init", this->address(Functions::kInit), skew,
                       {this->word(&made), N, this->word(buffer.data())});
            Plan* allocated = nullptr;
            this->call(length, "init and allocate", this->address(Functions::kInitAlloc), skew,
                       {this->word(&allocated), N});
            for (Plan* plan : {made, allocated}) {
                typename TestFixture::Signal y(x.size());
                this->call(length, "run", this->address(Functions::kRun), skew,
                           {this->word(x.data()), this->word(y.data()), this->word(plan)});
                EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << length;
            }
            this->call(length, "free", this->address(Functions::kFree), skew,
                       {this->word(allocated)});
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
