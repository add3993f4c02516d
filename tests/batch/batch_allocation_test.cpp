/** @file @brief What batches ask the allocator for. */

#include <gtest/gtest.h>

#include "batch/support/placed_batch.hpp"
#include "support/library_memory.hpp"

namespace qsvgen_test {
namespace {

constexpr std::int32_t kCount = 37;

template <class Real>
class BatchAllocation : public testing::Test {};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(BatchAllocation, Reals);

TYPED_TEST(BatchAllocation, IsOfNothingButTheWorkBufferThatASingleCallWouldAskForAndOnce) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        std::vector<TypeParam> x(static_cast<std::size_t>(
            std::max(kernel.source_elements, kernel.destination_elements) * kernel.parts));
        std::vector<TypeParam> y(x.size());
        LibraryMemory& memory = library_memory();
        memory = {};
        ASSERT_EQ(qsvStatusOk, kernel.single(x.data(), y.data(), qsvScaleNone));
        const auto asked_by_single = memory.sizes;
        for (const Way& way : {kContiguous, kColumns, kWays[4]}) {
            PlacedBatch<TypeParam> source(way, kernel.source_elements, kCount, kernel.parts, 0);
            PlacedBatch<TypeParam> destination(way, kernel.destination_elements, kCount,
                                               kernel.parts, 0);
            memory = {};
            ASSERT_EQ(qsvStatusOk,
                      transform_batch(kernel, source, destination, kCount, qsvScaleNone));
            EXPECT_EQ(asked_by_single, memory.sizes) << kernel.description() << ", " << way.name;
            EXPECT_EQ(memory.blocks, memory.freed) << kernel.description() << ", " << way.name;
        }
        // Blocks of others may come to lie where these were.
        memory = {};
    }
}

}  // namespace
}  // namespace qsvgen_test
