/** @file @brief Walsh-Hadamard kernels leave neither their arrays nor their work buffer. */

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "support/guarded_page.hpp"
#include "support/kernel.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

constexpr std::size_t kLargestBuffer = 73728;

enum class Stand { AtBegin, AtEnd };
constexpr Stand kStands[] = {Stand::AtBegin, Stand::AtEnd};

std::byte* place(const GuardedPage& pages, Stand stand, std::size_t bytes) {
    return stand == Stand::AtBegin ? pages.begin() : pages.end() - bytes;
}

template <class E>
class WalshHadamardMemory : public testing::Test {
  protected:
    using Real = typename E::Real;

    // Loose places steer a call to one path while another array touches a boundary.
    static Real* loose(const GuardedPage& pages, std::size_t offset) {
        return reinterpret_cast<Real*>(pages.begin() + 64 + offset);
    }
    static Real* array_at(const GuardedPage& pages, Stand stand, std::size_t size) {
        return reinterpret_cast<Real*>(place(pages, stand, size * sizeof(Real)));
    }
    static void put(Real* array, const std::vector<Real>& x) {
        std::memcpy(static_cast<void*>(array), x.data(), x.size() * sizeof(Real));
    }
    static std::vector<Real> taken(const Real* array, std::size_t size) {
        std::vector<Real> y(size);
        std::memcpy(y.data(), static_cast<const void*>(array), size * sizeof(Real));
        return y;
    }

    void expect_the_bits(const OrderKernel<E>& kernel, const std::vector<Real>& x, Real* source,
                         Real* destination, std::uint8_t* buffer, const std::string& where) {
        EXPECT_FALSE(catcher_.faults([&] {
            kernel.run(source, destination, qsvScaleBySqrtN, buffer);
        })) << kernel.name
            << " faults with " << where;
        EXPECT_TRUE(
            same_bits<E>(reference_wht<E>(x, qsvScaleBySqrtN), taken(destination, x.size())))
            << kernel.name << " with " << where;
    }

    FaultCatcher catcher_;
    GuardedPage source_{kLargestBuffer};
    GuardedPage destination_{kLargestBuffer};
    GuardedPage buffer_{kLargestBuffer};
};
TYPED_TEST_SUITE(WalshHadamardMemory, RealTypes, ElementNames);

// The size of each order is a multiple of 16, so that both ends may touch a boundary.
TYPED_TEST(WalshHadamardMemory, AWorkBufferOfExactlyTheToldSizeIsNotLeft) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        if (!kernel.has_buffer()) continue;
        const auto x = random_signal<TypeParam>(kernel.size(), 46);
        const auto bytes = static_cast<std::size_t>(kernel.buffer_bytes);
        // Pages of its own size, so that the other end is watched as well where it can be.
        const GuardedPage exact(bytes);
        for (const auto stand : kStands) {
            auto* const buffer = reinterpret_cast<std::uint8_t*>(place(exact, stand, bytes));
            for (const std::size_t offset : {0, 4}) {
                auto* const source = this->loose(this->source_, offset);
                this->put(source, x);
                std::memset(exact.begin(), 0xFF, exact.size());
                this->expect_the_bits(kernel, x, source, this->loose(this->destination_, 0), buffer,
                                      stand == Stand::AtBegin ? "a buffer behind a forbidden page"
                                                              : "a buffer before a forbidden page");
            }
        }
    }
}

TYPED_TEST(WalshHadamardMemory, ArraysAtForbiddenPagesAreNotLeft) {
    auto* const buffer = reinterpret_cast<std::uint8_t*>(this->buffer_.begin());
    for (const auto& kernel : order_kernels<TypeParam>()) {
        const auto x = random_signal<TypeParam>(kernel.size(), 47);
        for (const std::size_t offset : {0, 4}) {
            for (const auto stand : kStands) {
                auto* const source = this->array_at(this->source_, stand, x.size());
                this->put(source, x);
                this->expect_the_bits(kernel, x, source, this->loose(this->destination_, offset),
                                      buffer, "its source at a forbidden page");
                auto* const from = this->loose(this->source_, offset);
                this->put(from, x);
                this->expect_the_bits(kernel, x, from,
                                      this->array_at(this->destination_, stand, x.size()), buffer,
                                      "its destination at a forbidden page");
            }
        }
    }
}

TYPED_TEST(WalshHadamardMemory, TheSourceIsNotWrittenTo) {
    auto* const buffer = reinterpret_cast<std::uint8_t*>(this->buffer_.begin());
    for (const auto& kernel : order_kernels<TypeParam>()) {
        const auto x = random_signal<TypeParam>(kernel.size(), 48);
        for (const std::size_t offset : {0, 4}) {
            auto* const source = this->loose(this->source_, offset);
            this->source_.allow(Access::ReadWrite);
            this->put(source, x);
            this->source_.allow(Access::Read);
            this->expect_the_bits(kernel, x, source, this->loose(this->destination_, 0), buffer,
                                  "a source that is read-only");
        }
    }
}

#ifndef __aarch64__  // Its vectors may stand anywhere.
// The twins move arrays by unaligned access, yet the buffer by whole aligned vectors.
TYPED_TEST(WalshHadamardMemory, AMisplacedBufferFaultsOnEveryPath) {
    if (std::getenv("QSVGEN_TARGET_CODE") != nullptr)
        GTEST_SKIP() << "levels above the baseline access all memory unaligned";
    for (const auto& kernel : order_kernels<TypeParam>()) {
        if (!kernel.has_buffer()) continue;
        auto* const buffer = reinterpret_cast<std::uint8_t*>(this->buffer_.begin()) + 4;
        for (const std::size_t offset : {0, 4}) {
            EXPECT_TRUE(this->catcher_.faults([&] {
                kernel.run(this->loose(this->source_, offset), this->loose(this->destination_, 0),
                           qsvScaleNone, buffer);
            })) << kernel.name
                << ", source at " << offset;
        }
    }
}
#endif

// Undefined behaviour of the language, so no build with sanitizers runs this.
TYPED_TEST(WalshHadamardMemory, ANullSizeIsTheCallersFaultAndHasNoStatus) {
    for (const auto& kernel : order_kernels<TypeParam>()) {
        volatile QsvStatus status = 0;
        EXPECT_TRUE(this->catcher_.faults([&] {
            status = wht_buffer_size<TypeParam>(kernel.order, nullptr);
        })) << kernel.order;
        EXPECT_EQ(0, status) << kernel.order;
    }
}

}  // namespace
}  // namespace qsvgen_test
