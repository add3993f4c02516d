#include "kernelgen/graph/counts.hpp"

#include <gtest/gtest.h>

#include "tests/dft_complex/white_box/support/all_kernels.hpp"

namespace {

using dft_complex::row_of;
using dft_complex::TableRow;
using dft_complex_test::describe;
using dft_complex_test::Direction;
using dft_complex_test::Element;
using dft_complex_test::for_each_kernel;
using dft_complex_test::kDirections;
using dft_complex_test::kElements;
using dft_complex_test::Kernel;
using kernelgen::Counts;

Counts counts_of(const Kernel& kernel) {
    return kernelgen::count(kernel.graph, kernel.element == Element::Complex32);
}

Counts counts_of(int length, Direction direction, Element element) {
    return counts_of(dft_complex_test::kernel(length, direction, element));
}

TEST(Counts, NoSinglePrecisionKernelTakesMoreArithmeticThanItsRowOfTheTable) {
    for_each_kernel(Element::Complex32, [](const Kernel& kernel) {
        const Counts c = counts_of(kernel);
        EXPECT_LE(c.arithmetic(), row_of(kernel.length, kernel.element).arithmetic())
            << c.sums << " sums, " << c.differences << " differences, " << c.products
            << " products";
    });
}

/** How often the function of a row is written with the arithmetic: short ones have a copy for
 * arrays on 16-byte boundaries and one for others, and their rows count both, merged or not. */
int copies(int length) {
    return length <= 4 ? 2 : 1;
}

TEST(Counts, NoDoublePrecisionKernelTakesMoreSumsAndDifferencesThanItsRowOfTheTable) {
    for_each_kernel(Element::Complex64, [](const Kernel& kernel) {
        const Counts c = counts_of(kernel);
        const TableRow& row = row_of(kernel.length, kernel.element);
        EXPECT_LE(copies(kernel.length) * (c.sums + c.differences), row.sums + row.differences)
            << to_string(kernel.rule);
    });
}

TEST(Counts, NoDoublePrecisionKernelTakesMoreProductsThanItsRowOfTheTable) {
    for_each_kernel(Element::Complex64, [](const Kernel& kernel) {
        EXPECT_LE(copies(kernel.length) * counts_of(kernel).products,
                  row_of(kernel.length, kernel.element).products)
            << to_string(kernel.rule);
    });
}

TEST(Counts, BothDirectionsTakeTheSameArithmetic) {
    for (Element element : kElements) {
        for (int length = 2; length <= 64; ++length) {
            const Counts forward = counts_of(length, Direction::Forward, element);
            const Counts inverse = counts_of(length, Direction::Inverse, element);
            EXPECT_EQ(forward.products, inverse.products)
                << suffix(element) << ", length " << length;
            EXPECT_EQ(forward.sums + forward.differences, inverse.sums + inverse.differences)
                << suffix(element) << ", length " << length;
        }
    }
}

struct RealOperations {
    int length;
    int additions;
    int multiplications;  ///< apart from those by the scale factor
};

void PrintTo(const RealOperations& row, std::ostream* out) {
    *out << "length " << row.length;
}

class CountsOfPowersOfTwo : public testing::TestWithParam<RealOperations> {};

// An operation on a vector is one on each of its two parts.
TEST_P(CountsOfPowersOfTwo, TakeTheKnownRealAdditions) {
    const auto& [length, additions, multiplications] = GetParam();
    for (Direction direction : kDirections) {
        const Counts c = counts_of(length, direction, Element::Complex64);
        EXPECT_EQ(2 * (c.sums + c.differences), additions)
            << describe(length, direction, Element::Complex64);
    }
}

TEST_P(CountsOfPowersOfTwo, TakeTheKnownRealMultiplications) {
    const auto& [length, additions, multiplications] = GetParam();
    for (Direction direction : kDirections) {
        const Counts c = counts_of(length, direction, Element::Complex64);
        EXPECT_EQ(2 * (c.products - length), multiplications)
            << describe(length, direction, Element::Complex64);
    }
}

INSTANTIATE_TEST_SUITE_P(DoublePrecision, CountsOfPowersOfTwo,
                         testing::Values(RealOperations{8, 52, 4}, RealOperations{16, 144, 24},
                                         RealOperations{32, 376, 88}, RealOperations{64, 920, 264}),
                         [](const auto& row) {
                             return "Length" + std::to_string(row.param.length);
                         });

TEST(Counts, LengthThreeFormsItsFourProductsInBinary64) {
    for (Direction direction : kDirections) {
        const Counts c = counts_of(3, direction, Element::Complex32);
        EXPECT_EQ(c.wide_sums, 0);
        EXPECT_EQ(c.wide_differences, 2);
        EXPECT_EQ(c.wide_products, 4);
    }
}

TEST(Counts, LengthFiveFormsItsSixteenProductsInBinary64) {
    for (Direction direction : kDirections) {
        const Counts c = counts_of(5, direction, Element::Complex32);
        EXPECT_EQ(c.wide_sums, 6);
        EXPECT_EQ(c.wide_differences, 6);
        EXPECT_EQ(c.wide_products, 16);
    }
}

}  // namespace
