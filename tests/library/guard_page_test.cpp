/** @file @brief No byte outside the two arrays is read or written, and every output is written. */

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/bits.hpp"
#include "support/control_state.hpp"
#include "support/fault.hpp"
#include "support/guarded_page.hpp"
#include "support/signals.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {
namespace {

template <class E>
class MemoryAround : public testing::Test {};
TYPED_TEST_SUITE(MemoryAround, ElementTypes, ElementNames);

// Where in its page an array stands. Loose places steer a call to one path while the other
// array touches a page boundary.
enum class Stand { AtBegin, AtEnd, LooseAligned, LooseBy4 };
constexpr Stand kStands[] = {Stand::AtBegin, Stand::AtEnd, Stand::LooseAligned, Stand::LooseBy4};
constexpr const char* kStandNames[] = {"page begin", "page end", "aligned", "4 bytes off"};

template <class Element>
Element* place(const GuardedPage& page, Stand stand, std::size_t size) {
    const auto bytes = size * sizeof(Element);
    std::byte* address = page.begin();
    if (stand == Stand::AtEnd) address = page.end() - bytes;
    if (stand == Stand::LooseAligned) address = page.begin() + 256;
    if (stand == Stand::LooseBy4) address = page.begin() + 260;
    return reinterpret_cast<Element*>(address);
}

TYPED_TEST(MemoryAround, ArraysAtPageBoundariesAreNotLeft) {
    using Element = typename TypeParam::Element;
    GuardedPage source_page;
    GuardedPage destination_page;
    FaultCatcher catcher;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 17);
        const auto expected = transform(kernel, x, qsvScaleNone);
        for (const auto from : kStands) {
            auto* source = place<Element>(source_page, from, x.size());
            source_page.allow(Access::ReadWrite);
            std::memcpy(static_cast<void*>(source), x.data(), x.size() * sizeof(Element));
            source_page.allow(Access::Read);
            for (const auto to : kStands) {
                auto* destination = place<Element>(destination_page, to, expected.size());
                EXPECT_FALSE(catcher.faults([&] { kernel.run(source, destination, qsvScaleNone); }))
                    << kernel.name << " with source at " << kStandNames[static_cast<int>(from)]
                    << " and destination at " << kStandNames[static_cast<int>(to)];
                std::vector<Element> y(expected.size());
                std::memcpy(y.data(), static_cast<void*>(destination), y.size() * sizeof(Element));
                EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << kernel.name;
            }
        }
    }
}

TYPED_TEST(MemoryAround, InPlaceAtPageBoundariesTheArrayIsNotLeft) {
    using Element = typename TypeParam::Element;
    GuardedPage page;
    FaultCatcher catcher;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 18);
        for (const auto stand : kStands) {
            auto* array =
                place<Element>(page, stand, std::max(x.size(), kernel.destination_size()));
            std::memcpy(static_cast<void*>(array), x.data(), x.size() * sizeof(Element));
            EXPECT_FALSE(catcher.faults([&] { kernel.run(array, array, qsvScaleNone); }))
                << kernel.name << " at " << kStandNames[static_cast<int>(stand)];
        }
    }
}

TYPED_TEST(MemoryAround, BytesAroundTheDestinationKeepTheirValues) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 19);
        for (std::size_t from = 0; from < 16; from += 4) {
            Array source(x.size(), from);
            source.set(x);
            for (std::size_t to = 0; to < 16; to += 4) {
                Array destination(kernel.destination_size(), to);
                kernel.run(source.data(), destination.data(), qsvScaleFwdByN);
                EXPECT_TRUE(destination.margins_untouched())
                    << kernel.name << " at offsets " << from << " and " << to;
                EXPECT_TRUE(source.margins_untouched())
                    << kernel.name << " at offsets " << from << " and " << to;
            }
        }
    }
}

// 0xFF bytes are NaNs and 0x00 bytes zeros: whatever is left or added to shows in one of the two.
TYPED_TEST(MemoryAround, WhatStoodInTheDestinationDoesNotMatter) {
    using Array = PlacedArray<typename TypeParam::Element>;
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 20);
        for (const auto& placement : kPlacements) {
            Array source(x.size(), placement.source);
            source.set(x);
            Array over_zeros(kernel.destination_size(), placement.destination, std::byte{0x00});
            Array over_nans(kernel.destination_size(), placement.destination, std::byte{0xFF});
            kernel.run(source.data(), over_zeros.data(), qsvScaleNone);
            kernel.run(source.data(), over_nans.data(), qsvScaleNone);
            EXPECT_TRUE(same_bits<TypeParam>(over_zeros.get(), over_nans.get())) << kernel.name;
        }
    }
}

// A load that goes past the end of an array need not fault where the array ends before its page,
// as an aligned one of single precision and odd length always does. A signalling NaN there raises
// the invalid flag as soon as it is calculated with.
TYPED_TEST(MemoryAround, NothingBesideTheSourceIsCalculatedWith) {
    using Element = typename TypeParam::Element;
    using Real = typename TypeParam::Real;
    static constexpr Real trap = std::numeric_limits<Real>::signaling_NaN();
    constexpr std::size_t kBeside = 64 / sizeof(Real);
    for (const auto& kernel : kernels<TypeParam>()) {
        const auto x = random_source(kernel, 21);
        for (const auto& placement : kPlacements) {
            PlacedArray<Element> source(x.size() + 2 * kBeside, placement.source);
            PlacedArray<Element> destination(kernel.destination_size(), placement.destination);
            std::vector<Element> trapped(x.size() + 2 * kBeside);
            for (auto& element : trapped) {
                auto* number = reinterpret_cast<std::byte*>(&element);
                for (; number != reinterpret_cast<std::byte*>(&element + 1); number += sizeof trap)
                    std::memcpy(number, &trap, sizeof trap);
            }
            std::copy(x.begin(), x.end(), trapped.begin() + kBeside);
            source.set(trapped);
            const ControlState raised = raised_by(
                [&] { kernel.run(source.data() + kBeside, destination.data(), qsvScaleNone); });
            EXPECT_EQ(0u, raised & kInvalid) << kernel.name << " at offsets " << placement.source
                                             << " and " << placement.destination;
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
