#include "tests/dft_real/white_box/support/compiled_bits.hpp"
#include "tests/support/header_lengths.hpp"

#include <gtest/gtest.h>

#include "tests/hartley/white_box/support/all_kernels.hpp"

// What the compiler made of a kernel's source gives the bits that the kernel's graph gives.

namespace {

using dft_real::RealKernel;
using dft_real_test::CompiledKernel;

#define QSVG_TEST_ENTRY(N) qsvgHartley_##N##_32f,
constexpr CompiledKernel<float> kSingleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

#define QSVG_TEST_ENTRY(N) qsvgHartley_##N##_64f,
constexpr CompiledKernel<double> kDoubleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

template <class Real>
CompiledKernel<Real> compiled(int length) {
    const auto entry = qsvgen_test::place_in_header(length);
    if constexpr (sizeof(Real) == 4)
        return kSingleKernels[entry];
    else
        return kDoubleKernels[entry];
}

template <class Real>
class HartleyCompiledBits : public testing::Test {
  protected:
    template <class Check>
    static void for_each(const Check& check) {
        hartley_test::for_each_kernel(
            dft_real_test::kElementOf<Real>, [&](const RealKernel& kernel) {
                check(kernel, compiled<Real>(kernel.length), kernel.length, kernel.length);
            });
    }
};

using RealTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(HartleyCompiledBits, RealTypes, dft_real_test::NamesOfReals);

TYPED_TEST(HartleyCompiledBits, EveryUnitVectorGivesTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_unit_vectors<TypeParam>);
}

TYPED_TEST(HartleyCompiledBits, RandomSignalsGiveTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_random_signals<TypeParam>);
}

TYPED_TEST(HartleyCompiledBits, ZerosOfEitherSignGiveTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_zeros<TypeParam>);
}

}  // namespace
