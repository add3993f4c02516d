#include "tests/dft_complex/white_box/support/compiled_kernels.hpp"

#include "tests/support/header_lengths.hpp"

namespace dft_complex_test {
namespace {

template <class Real>
struct Entry {
    CompiledKernel<Real> forward;
    CompiledKernel<Real> inverse;
};

#define QSVG_TEST_ENTRY(N) {qsvgDFTFwd_CToC_##N##_32fc, qsvgDFTInv_CToC_##N##_32fc},
constexpr Entry<float> kSingleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

#define QSVG_TEST_ENTRY(N) {qsvgDFTFwd_CToC_##N##_64fc, qsvgDFTInv_CToC_##N##_64fc},
constexpr Entry<double> kDoubleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

template <class Real>
CompiledKernel<Real> find(const Entry<Real>* kernels, int length,
                          dft_complex::Direction direction) {
    const Entry<Real>& entry = kernels[qsvgen_test::place_in_header(length)];
    return direction == dft_complex::Direction::Forward ? entry.forward : entry.inverse;
}

}  // namespace

template <>
CompiledKernel<float> compiled_kernel<float>(int length, dft_complex::Direction direction) {
    return find(kSingleKernels, length, direction);
}

template <>
CompiledKernel<double> compiled_kernel<double>(int length, dft_complex::Direction direction) {
    return find(kDoubleKernels, length, direction);
}

}  // namespace dft_complex_test
