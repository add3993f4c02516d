/** @file @brief Views of batches: where they say that elements are, and what calls make of them. */

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "cpp/support/front_end.hpp"
#include "support/bits.hpp"
#include "support/guarded_page.hpp"
#include "support/kernel_table.hpp"
#include "support/signals.hpp"
#include "support/walsh_hadamard.hpp"

namespace qsvgen_test {
namespace {

template <class T>
testing::AssertionResult stands(const qsvgen::batch<T>& view, const T* base, std::ptrdiff_t length,
                                std::ptrdiff_t stride, std::ptrdiff_t distance,
                                std::ptrdiff_t count) {
    if (view.base == base && view.length == length && view.stride == stride &&
        view.distance == distance && view.count == count)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "base " << view.base - base << " elements off, length " << view.length << ", stride "
           << view.stride << ", distance " << view.distance << ", count " << view.count;
}

TEST(BatchView, HasItsPartsInTheirOrder) {
    float x[100] = {};
    const qsvgen::batch view(x, 5, 2, 11, 7);
    EXPECT_TRUE(stands(view, x, 5, 2, 11, 7));
}

TEST(BatchView, TakesIntegersOfAnyType) {
    float x[100] = {};
    const std::size_t length = 5;
    const short stride = -1;
    const std::int64_t distance = 11;
    const qsvgen::batch view{x, length, stride, distance, 7U};
    EXPECT_TRUE(stands(view, x, 5, -1, 11, 7));
}

TEST(BatchView, OfNumbersThatAreNoneOfAnAddressIsRefused) {
    float x[100] = {};
    constexpr auto kHighest = std::numeric_limits<std::uint64_t>::max();  // -1, if it wrapped
    for (const auto& view :
         {qsvgen::batch(x, kHighest, 1, 5, 20), qsvgen::batch(x, 5, kHighest, 5, 20),
          qsvgen::batch(x, 5, 1, kHighest, 20), qsvgen::batch(x, 5, 1, 5, kHighest)})
        EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley(view, view));
}

TEST(BatchView, OfWhatIsMutableIsReadAsWell) {
    float x[100] = {};
    const qsvgen::batch<const float> view = qsvgen::batch(x, 5, 1, 5, 20);
    EXPECT_TRUE(stands<const float>(view, x, 5, 1, 5, 20));
}

TEST(BatchView, OfColumnsStridesByARow) {
    std::vector<double> x(60);
    EXPECT_TRUE(stands(qsvgen::columns(x, 15, 4), x.data(), 15, 4, 1, 4));
    EXPECT_TRUE(stands(qsvgen::columns(x, 10, 4, 6), x.data(), 10, 6, 1, 4)) << "of a wider one";
}

TEST(BatchView, OfRowsIsARowApart) {
    std::vector<double> x(60);
    EXPECT_TRUE(stands(qsvgen::rows(x, 4, 15), x.data(), 15, 1, 15, 4));
    EXPECT_TRUE(stands(qsvgen::rows(x, 10, 4, 6), x.data(), 4, 1, 6, 10)) << "of a wider one";
}

TEST(BatchView, IsMadeOfAMatrix) {
    std::vector<std::complex<float>> x(60);
    const qsvgen::matrix matrix(x, 12, 5);
    EXPECT_TRUE(stands(qsvgen::rows(matrix), x.data(), 5, 1, 5, 12));
    EXPECT_TRUE(stands(qsvgen::columns(matrix), x.data(), 12, 5, 1, 5));
}

TEST(BatchView, IsMadeOfArraysOfArrays) {
    float c[3][4] = {};
    EXPECT_TRUE(stands(qsvgen::rows(c), &c[0][0], 4, 1, 4, 3));
    EXPECT_TRUE(stands(qsvgen::columns(c), &c[0][0], 3, 4, 1, 4));
    std::array<std::array<float, 4>, 3> a{};
    EXPECT_TRUE(stands(qsvgen::columns(a), a[0].data(), 3, 4, 1, 4));
    std::vector<std::array<float, 4>> v(3);
    EXPECT_TRUE(stands(qsvgen::rows(v), v[0].data(), 4, 1, 4, 3));
    v.clear();
    EXPECT_EQ(0, qsvgen::rows(v).count);
}

TEST(BatchView, OfConstantArraysIsConstant) {
    const std::vector<float> x(12);
    const std::vector<std::array<float, 4>> nested(3);
    static_assert(std::is_same_v<decltype(qsvgen::rows(x, 3, 4)), qsvgen::batch<const float>>);
    static_assert(std::is_same_v<decltype(qsvgen::rows(nested)), qsvgen::batch<const float>>);
    static_assert(std::is_same_v<decltype(qsvgen::frames(x, 3, 4)), qsvgen::batch<const float>>);
}

TEST(BatchView, IsConstantToTheCompiler) {
    static constexpr std::array<float, 12> x{};
    static_assert(qsvgen::columns(x, 3, 4).stride == 4);
    static_assert(qsvgen::frames(x, 4, 2).count == 5);
}

TEST(BatchView, OfFramesHasAllThatAreWhole) {
    std::vector<float> x(100);
    EXPECT_TRUE(stands(qsvgen::frames(x, 64, 16), x.data(), 64, 1, 16, 3));
    EXPECT_TRUE(stands(qsvgen::frames(x, 64, 18), x.data(), 64, 1, 18, 3));
    EXPECT_TRUE(stands(qsvgen::frames(x, 64, 19), x.data(), 64, 1, 19, 2));
    EXPECT_TRUE(stands(qsvgen::frames(x, 50, 50), x.data(), 50, 1, 50, 2));
    EXPECT_TRUE(stands(qsvgen::frames(x, 100, 1), x.data(), 100, 1, 1, 1));
    EXPECT_TRUE(stands(qsvgen::frames(x, 101, 1), x.data(), 101, 1, 1, 0));
    EXPECT_TRUE(stands(qsvgen::frames(std::span(x).first(70), 64, 3), x.data(), 64, 1, 3, 3));
}

TEST(BatchView, OfFramesWithoutLengthOrHopIsRefused) {
    std::vector<float> x(100);
    for (const auto& view :
         {qsvgen::frames(x, 0, 16), qsvgen::frames(x, -8, 16), qsvgen::frames(x, 8, 0),
          qsvgen::frames(x, 8, -1), qsvgen::frames(x, std::numeric_limits<std::uint64_t>::max(), 0),
          qsvgen::frames(x, 8, std::numeric_limits<std::uint64_t>::max())})
        EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley(view, view));
}

TEST(BatchView, OfAMatrixThatItsArrayIsTooSmallForIsRefused) {
    std::vector<float> x(60, 1);
    const auto before = x;
    const auto is_refused = [&](const auto& matrix) {
        return qsvgen::hartley(qsvgen::rows(matrix), qsvgen::rows(matrix)) == qsvStatusBadLength &&
               qsvgen::hartley(qsvgen::columns(matrix), qsvgen::columns(matrix)) ==
                   qsvStatusBadLength;
    };
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 13, 5)));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 3, 61)));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, -3, 5)));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 3, -5)));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 3, 5, 4))) << "rows in each other";
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 12, 4, 6)));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, 3, 4, std::numeric_limits<std::uint64_t>::max())));
    EXPECT_TRUE(is_refused(qsvgen::matrix(x, std::size_t{1} << (sizeof(std::size_t) * 4),
                                          std::size_t{1} << (sizeof(std::size_t) * 4))))
        << "whose product is 0";
    EXPECT_EQ(before, x);
    EXPECT_FALSE(is_refused(qsvgen::matrix(x, 12, 5)));
    EXPECT_FALSE(is_refused(qsvgen::matrix(x, 10, 6, 6)));
    EXPECT_FALSE(is_refused(qsvgen::matrix(x, 11, 4, 5)));
}

TEST(BatchView, OfNothingIsNothingToDo) {
    std::vector<float> none;
    std::vector<std::complex<double>> none_complex;
    const auto frames = qsvgen::frames(std::span<const float>(none), 64, 16);
    const auto rows = qsvgen::rows(none, 0, 16);
    const auto complex_rows = qsvgen::rows(none_complex, 0, 16);
    EXPECT_EQ(qsvStatusOk, qsvgen::hartley(frames, qsvgen::rows(none, 0, 64)));
    EXPECT_EQ(qsvStatusOk, qsvgen::real_dft(frames, qsvgen::rows(none, 0, 66), qsvgen::ccs));
    EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(rows, rows));
    EXPECT_EQ(qsvStatusOk, qsvgen::dft(complex_rows, complex_rows));
    EXPECT_EQ(qsvStatusBadFlag, qsvgen::dft(complex_rows, complex_rows, qsvgen::Scale{3}));
    EXPECT_EQ(qsvStatusNullPointer, qsvgen::hartley(qsvgen::batch<float>(nullptr, 16, 1, 16, 1),
                                                    qsvgen::batch<float>(nullptr, 16, 1, 16, 1)));
}

template <class E>
class BatchCalls : public testing::Test {
  protected:
    using T = CppElement<E>;
    static constexpr std::size_t kCount = 5;
};
TYPED_TEST_SUITE(BatchCalls, ElementTypes, ElementNames);

TYPED_TEST(BatchCalls, GiveTheBitsOfSingleCallsForEveryLengthAndScale) {
    using Element = typename TypeParam::Element;
    constexpr std::size_t kCount = TestFixture::kCount;
    for (const auto& kernel : kernels<TypeParam>()) {
        const std::size_t size = kernel.source_size();
        const std::size_t result = kernel.destination_size();
        const auto x = random_signal<TypeParam>(size * kCount, 1);
        const std::span in(as_cpp<TypeParam>(x.data()), x.size());
        for (const qsvgen::Scale scale : kScales) {
            const auto flag = static_cast<std::int32_t>(scale);
            std::vector<Element> y(result * kCount);
            const std::span out(as_cpp<TypeParam>(y.data()), y.size());
            // Rows to columns, so that no two numbers of the views may be mistaken for each other.
            EXPECT_EQ(qsvStatusOk,
                      call_front_end<TypeParam>(kernel.direction, kernel.layout,
                                                qsvgen::batch<const CppElement<TypeParam>>(
                                                    qsvgen::rows(in, kCount, size)),
                                                qsvgen::columns(out, result, kCount), scale))
                << describe(kernel, flag);
            for (std::size_t k = 0; k < kCount; ++k) {
                std::vector<Element> expected(result);
                std::vector<Element> actual(result);
                ASSERT_EQ(qsvStatusOk, kernel.run(x.data() + k * size, expected.data(), flag));
                for (std::size_t j = 0; j < result; ++j) actual[j] = y[j * kCount + k];
                EXPECT_TRUE(same_bits<TypeParam>(expected, actual))
                    << describe(kernel, flag) << ", transform " << k;
            }
        }
    }
}

TYPED_TEST(BatchCalls, AreRefusedWhereViewsDoNotFitEachOther) {
    using T = CppElement<TypeParam>;
    GuardedPage page;
    page.allow(Access::None);
    auto* const forbidden = reinterpret_cast<T*>(page.begin());
    constexpr auto kLowest = std::numeric_limits<std::ptrdiff_t>::min();
    constexpr auto kHighest = std::numeric_limits<std::ptrdiff_t>::max();
    for (const auto& family : dispatchers<TypeParam>()) {
        const bool is_ccs = family.layout == Layout::Ccs;
        const std::ptrdiff_t in = is_ccs && family.direction == Direction::Inverse ? 16 : 15;
        const std::ptrdiff_t out = is_ccs && family.direction == Direction::Forward ? 16 : 15;
        const auto status = [&](std::ptrdiff_t in_length, std::ptrdiff_t in_count,
                                std::ptrdiff_t out_length, std::ptrdiff_t out_count) {
            return call_front_end<TypeParam>(
                family.direction, family.layout,
                qsvgen::batch<const T>(forbidden, in_length, 1, in_length, in_count),
                qsvgen::batch<T>(forbidden, out_length, 1, out_length, out_count),
                qsvgen::Scale::none);
        };
        EXPECT_EQ(qsvStatusOk, status(in, 0, out, 0)) << family.name;
        for (const std::ptrdiff_t count :
             {std::ptrdiff_t{6}, std::ptrdiff_t{0}, std::ptrdiff_t{-7}, kLowest, kHighest}) {
            EXPECT_EQ(qsvStatusBadLength, status(in, 7, out, count)) << family.name << count;
            EXPECT_EQ(qsvStatusBadLength, status(in, count, out, 7)) << family.name << count;
        }
        for (const std::ptrdiff_t length :
             {std::ptrdiff_t{13}, std::ptrdiff_t{18}, std::ptrdiff_t{0}, std::ptrdiff_t{-15},
              kLowest, kHighest}) {
            EXPECT_EQ(qsvStatusBadLength, status(in, 7, length, 7)) << family.name << length;
            EXPECT_EQ(qsvStatusBadLength, status(length, 7, out, 7)) << family.name << length;
        }
        for (const std::ptrdiff_t length :
             {std::ptrdiff_t{0}, std::ptrdiff_t{1}, std::ptrdiff_t{65}, std::ptrdiff_t{-2}, kLowest,
              kHighest})
            EXPECT_EQ(qsvStatusBadLength, status(length, 7, length, 7)) << family.name << length;
        for (const std::ptrdiff_t count : {std::ptrdiff_t{-1}, kLowest})
            EXPECT_EQ(qsvStatusBadLength, status(in, count, out, count)) << family.name << count;
    }
}

TYPED_TEST(BatchCalls, AreRefusedOfCountsThatAreSmallOnesModuloTwoToThe32) {
    using T = CppElement<TypeParam>;
    if constexpr (sizeof(std::ptrdiff_t) == 8) {
        GuardedPage page;
        page.allow(Access::None);
        auto* const forbidden = reinterpret_cast<T*>(page.begin());
        const std::int64_t two_to_the_32 = std::int64_t{1} << 32;
        const qsvgen::batch<T> many(forbidden, 16, 1, 16, two_to_the_32 + 1);
        const qsvgen::batch<T> lengthy(forbidden, two_to_the_32 + 16, 1, 16, 1);
        if constexpr (kIsReal<TypeParam>) {
            EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley(many, many));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::hartley(lengthy, lengthy));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::real_dft(many, many, qsvgen::pack));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::real_dft(lengthy, lengthy, qsvgen::pack));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(many, many));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::walsh_hadamard(lengthy, lengthy));
        } else {
            EXPECT_EQ(qsvStatusBadLength, qsvgen::dft(many, many));
            EXPECT_EQ(qsvStatusBadLength, qsvgen::dft(lengthy, lengthy));
        }
    }
}

template <class E>
class WalshHadamardBatch : public testing::Test {};
TYPED_TEST_SUITE(WalshHadamardBatch, RealTypes, ElementNames);

TYPED_TEST(WalshHadamardBatch, GivesTheBitsOfSingleCallsForEveryOrder) {
    using Real = typename TypeParam::Real;
    constexpr std::size_t kCount = 3;
    const auto work = std::make_unique<qsvgen::WalshHadamardWork<Real>>();
    for (int order = kLowestOrder; order <= kHighestOrder; ++order) {
        const std::size_t size = std::size_t{1} << order;
        const auto x = random_signal<TypeParam>(size * kCount, 1);
        std::vector<Real> y(x.size());
        std::vector<Real> z(x.size());
        const auto in = qsvgen::rows(x, kCount, size);
        EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(in, qsvgen::rows(y, kCount, size),
                                                      qsvgen::Scale::by_sqrt_n));
        EXPECT_EQ(qsvStatusOk, qsvgen::walsh_hadamard(in, qsvgen::rows(z, kCount, size), *work,
                                                      qsvgen::Scale::by_sqrt_n));
        std::vector<Real> expected(x.size());
        for (std::size_t k = 0; k < kCount; ++k)
            ASSERT_EQ(qsvStatusOk, wht<TypeParam>(x.data() + k * size, expected.data() + k * size,
                                                  order, qsvScaleBySqrtN, nullptr));
        EXPECT_TRUE(same_bits<TypeParam>(expected, y)) << "order " << order;
        EXPECT_TRUE(same_bits<TypeParam>(expected, z)) << "order " << order << ", work buffer";
    }
}

TYPED_TEST(WalshHadamardBatch, IsRefusedOfLengthsThatAreNoneOrDoNotFit) {
    using Real = typename TypeParam::Real;
    GuardedPage page;
    page.allow(Access::None);
    auto* const forbidden = reinterpret_cast<Real*>(page.begin());
    const auto status = [&](std::ptrdiff_t in, std::ptrdiff_t in_count, std::ptrdiff_t out,
                            std::ptrdiff_t out_count) {
        return qsvgen::walsh_hadamard(qsvgen::batch<const Real>(forbidden, in, 1, in, in_count),
                                      qsvgen::batch<Real>(forbidden, out, 1, out, out_count));
    };
    EXPECT_EQ(qsvStatusOk, status(8, 0, 8, 0));
    for (const std::ptrdiff_t length : {0, 1, 3, 100, 16384, -2, -8192})
        EXPECT_EQ(qsvStatusBadLength, status(length, 3, length, 3)) << length;
    EXPECT_EQ(qsvStatusBadLength, status(8, 3, 16, 3));
    EXPECT_EQ(qsvStatusBadLength, status(8, 3, 8, 4));
    EXPECT_EQ(qsvStatusBadLength, status(8, -1, 8, -1));
    EXPECT_EQ(qsvStatusBadLength, status(std::numeric_limits<std::ptrdiff_t>::min(), 3,
                                         std::numeric_limits<std::ptrdiff_t>::min(), 3));
}

}  // namespace
}  // namespace qsvgen_test
