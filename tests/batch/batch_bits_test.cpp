/** @file @brief Each transform of a batch has the bits of the single call, wherever it stands. */

#include <gtest/gtest.h>

#include "batch/support/placed_batch.hpp"

namespace qsvgen_test {
namespace {

/** Runs `count` transforms both ways, and looks at all that lies in and around the arrays. */
template <class Real>
void expect_bits_of_single_calls(const BatchKernel<Real>& kernel, const Way& from, const Way& to,
                                 std::int32_t count, std::int32_t flag, std::size_t offset = 0) {
    constexpr Real kFill = Real(-7.25);
    PlacedBatch<Real> source(from, kernel.source_elements, count, kernel.parts, 0, offset);
    PlacedBatch<Real> source_before(from, kernel.source_elements, count, kernel.parts, 0, offset);
    const auto seed = static_cast<std::uint32_t>(kernel.size * 1000 + count);
    source.randomise(seed);
    source_before.randomise(seed);
    PlacedBatch<Real> destination(to, kernel.destination_elements, count, kernel.parts, kFill,
                                  offset);
    PlacedBatch<Real> expected(to, kernel.destination_elements, count, kernel.parts, kFill, offset);
    transform_singly(kernel, source, expected, count, flag);
    ASSERT_EQ(qsvStatusOk, transform_batch(kernel, source, destination, count, flag));
    const std::string call = kernel.description() + ", " + std::to_string(count) + " times, " +
                             from.name + " to " + to.name + ", flag " + std::to_string(flag) +
                             ", " + std::to_string(offset) + " bytes off a boundary";
    ASSERT_TRUE(destination.is_same_as(expected))
        << call << ": " << first_difference(kernel, expected, destination, count);
    ASSERT_TRUE(source.is_same_as(source_before)) << call << " has written to its source";
}

/** In place: what single calls make of a copy. */
template <class Real>
void expect_bits_of_single_calls_in_place(const BatchKernel<Real>& kernel, const Way& way,
                                          std::int32_t count, std::int32_t flag) {
    const int elements = std::max(kernel.source_elements, kernel.destination_elements);
    PlacedBatch<Real> array(way, elements, count, kernel.parts, 0);
    PlacedBatch<Real> before(way, elements, count, kernel.parts, 0);
    PlacedBatch<Real> expected(way, elements, count, kernel.parts, 0);
    const auto seed = static_cast<std::uint32_t>(kernel.size * 1000 + count);
    array.randomise(seed);
    before.randomise(seed);
    expected.randomise(seed);
    transform_singly(kernel, before, expected, count, flag);
    ASSERT_EQ(qsvStatusOk, transform_batch(kernel, array, array, count, flag));
    ASSERT_TRUE(array.is_same_as(expected))
        << kernel.description() << ", " << count << " times in place, " << way.name << ", flag "
        << flag << ": " << first_difference(kernel, expected, array, count);
}

template <class Real>
class BatchBits : public testing::Test {
  protected:
    /** Any count from 1 to beyond two groups of the widest vectors, and any flag, in turns. */
    std::int32_t next_count() { return 1 + static_cast<std::int32_t>(++turn_ * 7 % 37); }
    std::int32_t next_flag() { return kBatchFlags[++turn_ % 4]; }

    /** Long ones take the most of the time, and go the same ways. */
    static bool is_long(const BatchKernel<Real>& kernel) { return kernel.source_elements > 512; }

  private:
    unsigned turn_ = 0;
};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(BatchBits, Reals);

TYPED_TEST(BatchBits, AreThoseOfSingleCallsForEveryFunctionSizeAndWayThroughMemory) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const Way& from : kWays) {
            for (const Way& to : kWays) {
                if (to.overlaps || (this->is_long(kernel) && &from != &to)) continue;
                ASSERT_NO_FATAL_FAILURE(expect_bits_of_single_calls(
                    kernel, from, to, this->next_count(), this->next_flag()));
            }
        }
    }
}

TYPED_TEST(BatchBits, AreThoseOfSingleCallsForEveryFlag) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const std::int32_t flag : kBatchFlags) {
            for (const Way& way : {kContiguous, kColumns}) {
                ASSERT_NO_FATAL_FAILURE(
                    expect_bits_of_single_calls(kernel, way, way, this->next_count(), flag));
            }
        }
    }
}

TYPED_TEST(BatchBits, AreThoseOfSingleCallsForCountsFromNoneToAllRemaindersOfTheWidestVectors) {
    constexpr int kSizes[] = {1, 2, 3, 4, 5, 7, 8, 12, 16, 21, 33, 64};
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (std::find(std::begin(kSizes), std::end(kSizes), kernel.size) == std::end(kSizes))
            continue;
        for (std::int32_t count = 0; count <= 40; ++count) {
            for (const Way& way : {kContiguous, kColumns}) {
                ASSERT_NO_FATAL_FAILURE(
                    expect_bits_of_single_calls(kernel, way, way, count, this->next_flag()));
            }
        }
    }
}

TYPED_TEST(BatchBits, AreThoseOfSingleCallsForLargeCounts) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.size % 9 != 1 || this->is_long(kernel)) continue;
        for (const std::int32_t count : {127, 128, 255, 256, 257}) {
            for (const Way& way : {kContiguous, kColumns}) {
                ASSERT_NO_FATAL_FAILURE(
                    expect_bits_of_single_calls(kernel, way, way, count, this->next_flag()));
            }
        }
    }
}

TYPED_TEST(BatchBits, AreThoseOfSingleCallsInPlace) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const Way& way : kWays) {
            if (way.overlaps || this->is_long(kernel)) continue;
            ASSERT_NO_FATAL_FAILURE(expect_bits_of_single_calls_in_place(
                kernel, way, this->next_count(), this->next_flag()));
        }
    }
}

// Of the element type's own alignment as it is in 32-bit programs, which is all that callers may
// count on.
TYPED_TEST(BatchBits, AreThoseOfSingleCallsAtEveryAddressOfAnElement) {
    constexpr std::size_t kAlignment = kElementAlignment<TypeParam>;
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.size % 5 != 3 || this->is_long(kernel)) continue;
        for (std::size_t offset = 0; offset < 64; offset += kAlignment) {
            for (const Way& way : {kContiguous, kColumns}) {
                ASSERT_NO_FATAL_FAILURE(expect_bits_of_single_calls(
                    kernel, way, way, this->next_count(), this->next_flag(), offset));
            }
        }
    }
}

// Transforms of both arrays in turns: rows of one lie between rows of the other.
TYPED_TEST(BatchBits, AreThoseOfSingleCallsWhereSourceAndDestinationInterleave) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        if (kernel.parts != 1 || this->is_long(kernel)) continue;
        const auto rows = static_cast<std::ptrdiff_t>(
            std::max(kernel.source_elements, kernel.destination_elements));
        constexpr std::int32_t kCount = 19;
        // Element j of transform k: at 2 (j kCount + k), and that of the result one number on.
        std::vector<TypeParam> array(static_cast<std::size_t>(2 * rows * kCount));
        for (std::size_t i = 0; i < array.size(); ++i)
            array[i] = static_cast<TypeParam>(static_cast<int>(i * 7919 % 2001) - 1000) / 512;
        std::vector<TypeParam> expected = array;
        std::vector<TypeParam> x(static_cast<std::size_t>(kernel.source_elements));
        std::vector<TypeParam> y(static_cast<std::size_t>(kernel.destination_elements));
        const auto place = [&](std::size_t j, std::size_t k) { return 2 * (j * kCount + k); };
        for (std::size_t k = 0; k < kCount; ++k) {
            for (std::size_t j = 0; j < x.size(); ++j) x[j] = array[place(j, k)];
            ASSERT_EQ(qsvStatusOk, kernel.single(x.data(), y.data(), qsvScaleNone));
            for (std::size_t j = 0; j < y.size(); ++j) expected[place(j, k) + 1] = y[j];
        }
        ASSERT_EQ(qsvStatusOk, kernel.batch({array.data(), 2 * kCount, 2, array.data() + 1,
                                             2 * kCount, 2, kernel.size, kCount, qsvScaleNone}));
        ASSERT_EQ(0, std::memcmp(array.data(), expected.data(), array.size() * sizeof array[0]))
            << kernel.description();
    }
}

}  // namespace
}  // namespace qsvgen_test
