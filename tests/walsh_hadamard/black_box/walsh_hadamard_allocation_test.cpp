/**
 * @file
 * @brief When Walsh-Hadamard kernels allocate: with a platform core library that counts, hands out
 * blocks between forbidden pages, and can refuse.
 */

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/guarded_page.hpp"
#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace {

struct Core {
    bool refuses = false;
    std::vector<std::int32_t> sizes;  ///< asked for
    std::vector<void*> blocks;        ///< handed out
    std::vector<void*> freed;
    std::unique_ptr<qsvgen_test::GuardedPage> pages;
};

Core& core() {
    static Core instance;
    return instance;
}

}  // namespace

// The program's own definitions go before those of the core library.
extern "C" {

[[gnu::visibility("default")]] void* qsvMalloc(std::int32_t size) {
    core().sizes.push_back(size);
    void* block = nullptr;
    if (!core().refuses) {
        const auto bytes = static_cast<std::size_t>(size);
        core().pages = std::make_unique<qsvgen_test::GuardedPage>(bytes);
        block = core().pages->end() - bytes;
    }
    core().blocks.push_back(block);
    return block;
}

[[gnu::visibility("default")]] void qsvFree(void* block) {
    core().freed.push_back(block);
    core().pages.reset();
}
}

namespace qsvgen_test {
namespace {

template <class E>
class WalshHadamardAllocation : public testing::Test {
  protected:
    using Real = typename E::Real;

    void SetUp() override { core() = Core(); }

    template <class Check>
    static void for_each_path(Check check) {
        for (const auto& kernel : order_kernels<E>()) {
            const auto x = random_signal<E>(kernel.size(), 49);
            for (const auto& placement : kPlacements) {
                PlacedArray<Real> source(x.size(), placement.source);
                PlacedArray<Real> destination(x.size(), placement.destination);
                source.set(x);
                core() = Core();
                check(kernel, x, source, destination);
            }
        }
    }
};
TYPED_TEST_SUITE(WalshHadamardAllocation, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardAllocation, ANullBufferTakesOneBlockOfExactlyTheSizeAndGivesItBack) {
    this->for_each_path([](const auto& kernel, const auto& x, auto& source, auto& destination) {
        EXPECT_EQ(0, kernel.run(source.data(), destination.data(), qsvScaleNone, nullptr));
        if (kernel.has_buffer()) {
            EXPECT_EQ(std::vector<std::int32_t>{kernel.buffer_bytes}, core().sizes) << kernel.name;
            EXPECT_EQ(core().blocks, core().freed) << kernel.name;
        } else {
            EXPECT_TRUE(core().sizes.empty()) << kernel.name;
            EXPECT_TRUE(core().freed.empty()) << kernel.name;
        }
        EXPECT_TRUE(
            same_bits<TypeParam>(reference_wht<TypeParam>(x, qsvScaleNone), destination.get()))
            << kernel.name;
    });
}

TYPED_TEST(WalshHadamardAllocation, TheDispatcherHandsTheBufferOn) {
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        WorkBuffer buffer(kernel.buffer_bytes);
        EXPECT_EQ(0, wht<TypeParam>(source.data(), destination.data(), kernel.order, qsvScaleNone,
                                    buffer.data()));
        EXPECT_TRUE(core().sizes.empty()) << kernel.name;
        EXPECT_EQ(0, wht<TypeParam>(source.data(), destination.data(), kernel.order, qsvScaleNone,
                                    nullptr));
        EXPECT_EQ(kernel.has_buffer() ? 1u : 0u, core().sizes.size()) << kernel.name;
        EXPECT_EQ(core().blocks, core().freed) << kernel.name;
    });
}

TYPED_TEST(WalshHadamardAllocation, WithABufferNothingIsAllocatedOrFreed) {
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        WorkBuffer buffer(kernel.buffer_bytes);
        for (const auto flag : kFlags) {
            EXPECT_EQ(0, kernel.run(source.data(), destination.data(), flag, buffer.data()));
        }
        EXPECT_TRUE(core().sizes.empty()) << kernel.name;
        EXPECT_TRUE(core().freed.empty()) << kernel.name;
    });
}

TYPED_TEST(WalshHadamardAllocation, ARefusedCallAllocatesNothing) {
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        for (const auto flag : kBadFlags)
            EXPECT_EQ(-16, kernel.run(source.data(), destination.data(), flag, nullptr));
        EXPECT_EQ(-8, kernel.run(nullptr, destination.data(), qsvScaleNone, nullptr));
        EXPECT_EQ(-8, kernel.run(source.data(), nullptr, qsvScaleNone, nullptr));
        EXPECT_EQ(-8, kernel.run(nullptr, nullptr, 0, nullptr));
        EXPECT_EQ(-6, wht<TypeParam>(source.data(), destination.data(), 14, qsvScaleNone, nullptr));
        EXPECT_TRUE(core().sizes.empty()) << kernel.name;
        EXPECT_TRUE(core().freed.empty()) << kernel.name;
    });
}

// A failed allocation is not detected: the kernel writes through the null pointer.
TYPED_TEST(WalshHadamardAllocation, AFailedAllocationHasNoStatusOfItsOwn) {
    static FaultCatcher catcher;
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        core().refuses = true;
        volatile QsvStatus status = 0;
        const bool faulted = catcher.faults(
            [&] { status = kernel.run(source.data(), destination.data(), qsvScaleNone, nullptr); });
        EXPECT_EQ(kernel.has_buffer(), faulted) << kernel.name;
        EXPECT_EQ(0, status) << kernel.name;
    });
}

}  // namespace
}  // namespace qsvgen_test
