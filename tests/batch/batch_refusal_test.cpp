/** @file @brief What batch functions refuse, in which order, and that a refused call touches
 * nothing. */

#include <gtest/gtest.h>

#include <limits>

#include "batch/support/batch_kernels.hpp"
#include "support/guarded_page.hpp"

namespace qsvgen_test {
namespace {

template <class Real>
class BatchRefusal : public testing::Test {
  protected:
    BatchRefusal() { page_.allow(Access::None); }

    /** Arrays that nothing may touch. */
    BatchCall<Real> refused(const BatchKernel<Real>& kernel) const {
        auto* const forbidden = reinterpret_cast<Real*>(page_.begin());
        return {forbidden,   1, kernel.source_elements,
                forbidden,   1, kernel.destination_elements,
                kernel.size, 7, qsvScaleNone};
    }

  private:
    GuardedPage page_;
};
using Reals = testing::Types<Real32, Real64>;
TYPED_TEST_SUITE(BatchRefusal, Reals);

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TYPED_TEST(BatchRefusal, OfSizesOutOfRangeComesFirst) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const std::int32_t size :
             {kLowest, -1, 0, kernel.smallest - 1, kernel.largest + 1, kHighest}) {
            auto call = this->refused(kernel);
            call.size = size;
            EXPECT_EQ(qsvStatusBadLength, kernel.batch(call)) << kernel.name << " of " << size;
            call.count = -1;
            call.source = nullptr;
            call.destination = nullptr;
            call.flag = 3;
            EXPECT_EQ(qsvStatusBadLength, kernel.batch(call)) << kernel.name << " of " << size;
        }
    }
}

TYPED_TEST(BatchRefusal, OfNegativeCountsComesBeforeThatOfNullPointers) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const std::int32_t count : {-1, -2, kLowest}) {
            auto call = this->refused(kernel);
            call.count = count;
            EXPECT_EQ(qsvStatusBadLength, kernel.batch(call)) << kernel.description();
            call.source = nullptr;
            call.destination = nullptr;
            call.flag = 0;
            EXPECT_EQ(qsvStatusBadLength, kernel.batch(call)) << kernel.description();
        }
    }
}

TYPED_TEST(BatchRefusal, OfNullPointersComesBeforeThatOfFlags) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const std::int32_t count : {0, 1, 7}) {
            auto call = this->refused(kernel);
            call.count = count;
            call.flag = 16;
            call.source = nullptr;
            EXPECT_EQ(qsvStatusNullPointer, kernel.batch(call)) << kernel.description();
            call.destination = nullptr;
            EXPECT_EQ(qsvStatusNullPointer, kernel.batch(call)) << kernel.description();
            call.source = this->refused(kernel).source;
            EXPECT_EQ(qsvStatusNullPointer, kernel.batch(call)) << kernel.description();
        }
    }
}

TYPED_TEST(BatchRefusal, IsOfAllFlagsButFour) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        for (const std::int32_t flag : {kLowest, -1, 0, 3, 5, 6, 7, 9, 16, 257, kHighest}) {
            for (const std::int32_t count : {0, 1, 7}) {
                auto call = this->refused(kernel);
                call.count = count;
                call.flag = flag;
                EXPECT_EQ(qsvStatusBadFlag, kernel.batch(call))
                    << kernel.description() << " " << flag;
            }
        }
    }
}

TYPED_TEST(BatchRefusal, IsNotOfNoTransformsWhichTouchNothing) {
    for (const auto& kernel : batch_kernels<TypeParam>()) {
        auto call = this->refused(kernel);
        call.count = 0;
        EXPECT_EQ(qsvStatusOk, kernel.batch(call)) << kernel.description();
    }
}

}  // namespace
}  // namespace qsvgen_test
