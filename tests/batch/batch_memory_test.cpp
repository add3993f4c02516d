/** @file @brief No byte outside the named elements is read or written. */

#include <gtest/gtest.h>

#include <limits>

#include "batch/support/placed_batch.hpp"
#include "support/fault.hpp"
#include "support/guarded_page.hpp"

namespace qsvgen_test {
namespace {

template <class Real>
class BatchMemory : public testing::Test {};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(BatchMemory, Reals);

constexpr std::int32_t kCounts[] = {1, 2, 3, 5, 8, 9, 16, 17, 31};

/** Where an array stands between two forbidden pages. */
enum class End { First, Last };

template <class Real>
Real* at(const GuardedPage& page, End end, std::ptrdiff_t numbers) {
    return reinterpret_cast<Real*>(
        end == End::First ? page.begin()
                          : page.end() - numbers * static_cast<std::ptrdiff_t>(sizeof(Real)));
}

TYPED_TEST(BatchMemory, ArraysAtPageBoundariesAreNotLeft) {
    constexpr std::ptrdiff_t kMostElements = 66;
    constexpr std::ptrdiff_t kMostCount = 31;
    const auto most_bytes =
        static_cast<std::size_t>(2 * kMostElements * kMostCount) * sizeof(TypeParam);
    GuardedPage source_page(most_bytes);
    GuardedPage destination_page(most_bytes);
    source_page.allow(Access::ReadWrite);
    std::memset(source_page.begin(), 0, source_page.size());
    source_page.allow(Access::Read);
    destination_page.allow(Access::ReadWrite);
    FaultCatcher catcher;
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.source_elements > kMostElements) continue;
        for (const std::int32_t count : kCounts) {
            const std::ptrdiff_t source_numbers = kernel.source_elements * count * kernel.parts;
            const std::ptrdiff_t destination_numbers =
                kernel.destination_elements * count * kernel.parts;
            for (const End from : {End::First, End::Last}) {
                for (const End to : {End::First, End::Last}) {
                    for (const Way& way : {kContiguous, kColumns}) {
                        const BatchCall<TypeParam> call = {
                            at<TypeParam>(source_page, from, source_numbers),
                            way.stride(kernel.source_elements, count),
                            way.distance(kernel.source_elements, count),
                            at<TypeParam>(destination_page, to, destination_numbers),
                            way.stride(kernel.destination_elements, count),
                            way.distance(kernel.destination_elements, count),
                            kernel.size,
                            count,
                            qsvScaleBySqrtN};
                        EXPECT_FALSE(catcher.faults([&] { kernel.batch(call); }))
                            << kernel.description() << ", " << count << " times, " << way.name;
                    }
                }
            }
        }
    }
}

// A signalling NaN raises the invalid flag as soon as it is calculated with.
TYPED_TEST(BatchMemory, NothingBetweenOrBesideTheTransformsIsCalculatedWith) {
    static constexpr TypeParam kTrap = std::numeric_limits<TypeParam>::signaling_NaN();
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.source_elements > 512) continue;
        for (const Way& way : kWays) {
            for (const std::int32_t count : {1, 3, 8, 13}) {
                PlacedBatch<TypeParam> source(way, kernel.source_elements, count, kernel.parts,
                                              kTrap);
                for (std::int32_t k = 0; k < count; ++k) {
                    for (int j = 0; j < kernel.source_elements; ++j) {
                        for (int part = 0; part < kernel.parts; ++part)
                            source.set_number(j, k, part, static_cast<TypeParam>(j % 5) - 2);
                    }
                }
                PlacedBatch<TypeParam> destination(kContiguous, kernel.destination_elements, count,
                                                   kernel.parts, 0);
                // Of small whole numbers none is denormal, no operation invalid, no result too
                // large.
                const ControlState raised = raised_by(
                    [&] { transform_batch(kernel, source, destination, count, qsvScaleNone); });
                const ControlState allowed =
                    unused_parts_raise_flags() ? kExceptionFlags & ~kInvalid : kInexact;
                EXPECT_EQ(0U, raised & ~allowed)
                    << kernel.description() << ", " << count << " times, " << way.name;
            }
        }
    }
}

}  // namespace
}  // namespace qsvgen_test
