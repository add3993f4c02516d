/** @file @brief Transforms trust no stack alignment and keep the registers. */

#include <array>

#include "support/dct4.hpp"
#include "support/fault.hpp"
#include "support/skewed_call.hpp"

namespace qsvgen_test {
namespace {

std::uint32_t address(const void* pointer) {
    return reinterpret_cast<std::uint32_t>(pointer);
}

TEST(Dct4Caller, AStackOfAnyWordDoesAndTheRegistersAreKept) {
    FaultCatcher catcher;
    for (std::int32_t length : transform_lengths(65536)) {
        const Signal x = random_signal<E>(word(length), 51);
        const Signal expected = transformed(x);
        for (const std::uint32_t skew : {0, 4, 8, 12}) {
            Array source(x.size(), 0);
            Array destination(x.size(), 0);
            source.set(x);
            const std::array<std::uint32_t, 5> arguments = {
                address(source.data()), address(destination.data()),
                address(plan_of(plan_for(length))), 0, 0};
            volatile QsvStatus status = -1;
            KeptRegisters kept = {};
            const bool faulted = catcher.faults([&] {
                status = call_on_skewed_stack(reinterpret_cast<const void*>(&EXPORTED(DCT4)),
                                              arguments.data(), skew, &kept);
            });
            ASSERT_FALSE(faulted) << "length " << length << ", esp = " << skew << " mod 16";
            EXPECT_EQ(qsvStatusOk, status) << "length " << length;
            EXPECT_TRUE(destination.holds(expected)) << "length " << length << ", skew " << skew;
            EXPECT_EQ(kRegistersBefore.ebx, kept.ebx) << "length " << length;
            EXPECT_EQ(kRegistersBefore.esi, kept.esi) << "length " << length;
            EXPECT_EQ(kRegistersBefore.edi, kept.edi) << "length " << length;
            EXPECT_EQ(kRegistersBefore.ebp, kept.ebp) << "length " << length;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
