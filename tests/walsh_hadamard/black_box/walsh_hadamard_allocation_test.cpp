/**
 * @file
 * @brief When Walsh-Hadamard kernels allocate: from an allocator that counts, hands out blocks
 * before forbidden pages, and can refuse.
 */

#include <gtest/gtest.h>

#include <vector>

#include "support/kernel.hpp"
#include "support/library_memory.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class WalshHadamardAllocation : public testing::Test {
  protected:
    using Real = typename E::Real;

    void SetUp() override { forget(); }

    static void forget() {
        library_memory() = LibraryMemory();
        library_memory().is_guarded = true;
    }

    template <class Check>
    static void for_each_path(Check check) {
        for (const auto& kernel : order_kernels<E>()) {
            const auto x = random_signal<E>(kernel.size(), 49);
            for (const auto& placement : kPlacements) {
                PlacedArray<Real> source(x.size(), placement.source);
                PlacedArray<Real> destination(x.size(), placement.destination);
                source.set(x);
                forget();
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
            EXPECT_EQ(std::vector<std::int32_t>{kernel.buffer_bytes}, library_memory().sizes)
                << kernel.name;
            EXPECT_EQ(library_memory().blocks, library_memory().freed) << kernel.name;
        } else {
            EXPECT_TRUE(library_memory().sizes.empty()) << kernel.name;
            EXPECT_TRUE(library_memory().freed.empty()) << kernel.name;
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
        EXPECT_TRUE(library_memory().sizes.empty()) << kernel.name;
        EXPECT_EQ(0, wht<TypeParam>(source.data(), destination.data(), kernel.order, qsvScaleNone,
                                    nullptr));
        EXPECT_EQ(kernel.has_buffer() ? 1u : 0u, library_memory().sizes.size()) << kernel.name;
        EXPECT_EQ(library_memory().blocks, library_memory().freed) << kernel.name;
    });
}

TYPED_TEST(WalshHadamardAllocation, WithABufferNothingIsAllocatedOrFreed) {
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        WorkBuffer buffer(kernel.buffer_bytes);
        for (const auto flag : kFlags) {
            EXPECT_EQ(0, kernel.run(source.data(), destination.data(), flag, buffer.data()));
        }
        EXPECT_TRUE(library_memory().sizes.empty()) << kernel.name;
        EXPECT_TRUE(library_memory().freed.empty()) << kernel.name;
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
        EXPECT_TRUE(library_memory().sizes.empty()) << kernel.name;
        EXPECT_TRUE(library_memory().freed.empty()) << kernel.name;
    });
}

// A failed allocation is not detected: the kernel writes through the null pointer.
TYPED_TEST(WalshHadamardAllocation, AFailedAllocationHasNoStatusOfItsOwn) {
    static FaultCatcher catcher;
    this->for_each_path([](const auto& kernel, const auto&, auto& source, auto& destination) {
        library_memory().refuses = true;
        volatile QsvStatus status = 0;
        const bool faulted = catcher.faults(
            [&] { status = kernel.run(source.data(), destination.data(), qsvScaleNone, nullptr); });
        EXPECT_EQ(kernel.has_buffer(), faulted) << kernel.name;
        EXPECT_EQ(0, status) << kernel.name;
    });
}

}  // namespace
}  // namespace qsvgen_test
