/** @file @brief What Walsh-Hadamard transforms refuse, in which order, and the size queries. */

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <functional>
#include <string>

#include "support/guarded_page.hpp"
#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kBadOrders[] = {0, 14, 15, -1, -13, 128, 257, 0x10001, INT_MAX, INT_MIN};

template <class E>
class WalshHadamardFrame : public testing::Test {
  protected:
    using Real = typename E::Real;
    using Call = std::function<QsvStatus(const Real*, Real*, std::int32_t, std::uint8_t*)>;

    /** The kernel by itself, and by the dispatcher. */
    template <class Check>
    static void for_each_call(Check check) {
        for (const auto& kernel : order_kernels<E>()) {
            check(kernel.name, Call(kernel.run));
            check(std::string("dispatcher, order ") + std::to_string(kernel.order),
                  Call([&](const Real* src, Real* dst, std::int32_t flag, std::uint8_t* buffer) {
                      return wht<E>(src, dst, kernel.order, flag, buffer);
                  }));
        }
    }

    // Nobody may look at what a refused call was given.
    FaultCatcher catcher_;
    GuardedPage page_{1 << 17};

    Real* forbidden(std::size_t offset) {
        page_.allow(Access::None);
        return reinterpret_cast<Real*>(page_.begin() + offset);
    }
    QsvStatus status_of(const Call& call, const Real* src, Real* dst, std::int32_t flag,
                        std::uint8_t* buffer) {
        constexpr QsvStatus kFaulted = 1;
        volatile QsvStatus status = kFaulted;
        catcher_.faults([&] { status = call(src, dst, flag, buffer); });
        return status;
    }
};
TYPED_TEST_SUITE(WalshHadamardFrame, RealTypes, ElementNames);

// All combinations of null, aligned and unaligned pointers, good and bad flags, with and without a
// buffer: null pointers before the flag, whatever the alignment says.
TYPED_TEST(WalshHadamardFrame, NullPointersAreRefusedBeforeTheFlagInAllCombinations) {
    using Real = typename TypeParam::Real;
    auto* const buffer = reinterpret_cast<std::uint8_t*>(this->forbidden(0));
    const std::array<Real*, 3> pointers = {nullptr, this->forbidden(4096), this->forbidden(4100)};
    this->for_each_call([&](const std::string& name, const auto& call) {
        for (Real* source : pointers) {
            for (Real* destination : pointers) {
                for (const std::int32_t flag : {1, 2, 4, 8, 0, 3, -1}) {
                    for (std::uint8_t* work : {buffer, static_cast<std::uint8_t*>(nullptr)}) {
                        const bool null = source == nullptr || destination == nullptr;
                        const bool bad_flag = flag <= 0 || flag == 3;
                        if (!null && !bad_flag) continue;
                        EXPECT_EQ(null ? -8 : -16,
                                  this->status_of(call, source, destination, flag, work))
                            << name << ": source " << source << ", destination " << destination
                            << ", flag " << flag << ", buffer " << static_cast<void*>(work);
                    }
                }
            }
        }
    });
}

TYPED_TEST(WalshHadamardFrame, EveryValueThatIsNoFlagIsRefused) {
    using Real = typename TypeParam::Real;
    const std::array<Real*, 2> pointers = {this->forbidden(4096), this->forbidden(4100)};
    this->for_each_call([&](const std::string& name, const auto& call) {
        for (Real* pointer : pointers) {
            for (const auto flag : kBadFlags) {
                EXPECT_EQ(-16, this->status_of(call, pointer, pointer, flag, nullptr))
                    << name << ", flag " << flag;
            }
        }
    });
}

TYPED_TEST(WalshHadamardFrame, TheFourFlagsAreAccepted) {
    using Real = typename TypeParam::Real;
    std::vector<Real> x(1 << kHighestOrder);
    this->for_each_call([&](const std::string& name, const auto& call) {
        for (const auto flag : kFlags)
            EXPECT_EQ(0, this->status_of(call, x.data(), x.data(), flag, nullptr))
                << name << ", flag " << flag;
    });
}

TYPED_TEST(WalshHadamardFrame, ADispatcherRefusesTheOrderBeforeAllElse) {
    using Real = typename TypeParam::Real;
    for (const auto order : kBadOrders) {
        for (Real* pointer : {static_cast<Real*>(nullptr), this->forbidden(4096)}) {
            for (const std::int32_t flag : {0, 3, 8}) {
                EXPECT_EQ(-6,
                          this->status_of(
                              [&](const Real* src, Real* dst, std::int32_t given, auto* buffer) {
                                  return wht<TypeParam>(src, dst, order, given, buffer);
                              },
                              pointer, pointer, flag, nullptr))
                    << "order " << order << ", flag " << flag;
            }
        }
    }
}

TYPED_TEST(WalshHadamardFrame, TheSizeQueryTellsTheSizeOfEveryOrder) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        std::int32_t size = -1;
        EXPECT_EQ(0, wht_buffer_size<TypeParam>(kernel.order, &size)) << kernel.order;
        EXPECT_EQ(kernel.buffer_bytes, size) << kernel.order;
    }
}

TYPED_TEST(WalshHadamardFrame, TheSizeQueryRefusesOtherOrdersAndLeavesTheSize) {
    for (const auto order : kBadOrders) {
        std::int32_t size = 4711;
        EXPECT_EQ(-6, wht_buffer_size<TypeParam>(order, &size)) << order;
        EXPECT_EQ(4711, size) << order;
        EXPECT_EQ(-6, wht_buffer_size<TypeParam>(order, nullptr)) << order;
    }
}

TYPED_TEST(WalshHadamardFrame, ShortOrdersDoNotLookAtTheBuffer) {
    using Real = typename TypeParam::Real;
    auto* const buffer = reinterpret_cast<std::uint8_t*>(this->forbidden(3));
    for (const auto& kernel : order_kernels<TypeParam>()) {
        if (kernel.has_buffer()) continue;
        const auto x = random_signal<TypeParam>(kernel.size(), 45);
        for (std::uint8_t* given : {buffer, static_cast<std::uint8_t*>(nullptr)}) {
            std::vector<Real> y(x.size());
            EXPECT_EQ(0, this->status_of(
                             [&](const Real* src, Real* dst, std::int32_t flag, auto* work) {
                                 return wht<TypeParam>(src, dst, kernel.order, flag, work);
                             },
                             x.data(), y.data(), qsvScaleNone, given));
            EXPECT_TRUE(same_bits<TypeParam>(reference_wht<TypeParam>(x, qsvScaleNone), y));
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
