#include <gtest/gtest.h>

#include "tests/dft_real/white_box/support/all_kernels.hpp"
#include "tests/dft_real/white_box/support/compiled_bits.hpp"
#include "tests/support/header_lengths.hpp"

// What the compiler made of a kernel's source gives the bits that the kernel's graph gives.

namespace {

using dft_real_test::CompiledKernel;
using dft_real_test::Direction;
using dft_real_test::for_each_kernel;
using dft_real_test::kElementOf;
using dft_real_test::Kernel;

/** Functions of one length, by direction and layout. */
template <class Real>
struct Entry {
    CompiledKernel<Real> function[2][3];
};

#define QSVG_TEST_ENTRY(N)                                                                       \
    {{{qsvgDFTFwd_RToCCS_##N##_32f, qsvgDFTFwd_RToPack_##N##_32f, qsvgDFTFwd_RToPerm_##N##_32f}, \
      {qsvgDFTInv_CCSToR_##N##_32f, qsvgDFTInv_PackToR_##N##_32f, qsvgDFTInv_PermToR_##N##_32f}}},
constexpr Entry<float> kSingleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

#define QSVG_TEST_ENTRY(N)                                                                       \
    {{{qsvgDFTFwd_RToCCS_##N##_64f, qsvgDFTFwd_RToPack_##N##_64f, qsvgDFTFwd_RToPerm_##N##_64f}, \
      {qsvgDFTInv_CCSToR_##N##_64f, qsvgDFTInv_PackToR_##N##_64f, qsvgDFTInv_PermToR_##N##_64f}}},
constexpr Entry<double> kDoubleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

template <class Real>
CompiledKernel<Real> compiled(const Kernel& kernel) {
    const auto entry = qsvgen_test::place_in_header(kernel.length);
    const auto direction = static_cast<std::size_t>(kernel.direction);
    const auto layout = static_cast<std::size_t>(kernel.layout);
    if constexpr (sizeof(Real) == 4)
        return kSingleKernels[entry].function[direction][layout];
    else
        return kDoubleKernels[entry].function[direction][layout];
}

template <class Real>
class RealCompiledBits : public testing::Test {
  protected:
    template <class Check>
    static void for_each(const Check& check) {
        int kernels = 0;
        for_each_kernel([&](const Kernel& kernel) {
            if (kernel.element != kElementOf<Real>) return;
            ++kernels;
            check(kernel.made(), compiled<Real>(kernel), kernel.inputs(), kernel.outputs());
        });
        if (!HasFatalFailure()) {
            EXPECT_EQ(kernels, 378);
        }
    }
};

using RealTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(RealCompiledBits, RealTypes, dft_real_test::NamesOfReals);

TYPED_TEST(RealCompiledBits, EveryUnitVectorGivesTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_unit_vectors<TypeParam>);
}

// The zeros of a CCS array are random numbers here, since they are not to be read.
TYPED_TEST(RealCompiledBits, RandomSignalsGiveTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_random_signals<TypeParam>);
}

TYPED_TEST(RealCompiledBits, ZerosOfEitherSignGiveTheBitsOfTheGraph) {
    this->for_each(dft_real_test::expect_bits_for_zeros<TypeParam>);
}

}  // namespace
