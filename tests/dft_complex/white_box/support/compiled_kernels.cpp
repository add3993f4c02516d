#include "tests/dft_complex/white_box/support/compiled_kernels.hpp"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string>

namespace dft_complex_test {
namespace {

template <class Real>
struct Entry {
    int length;
    CompiledKernel<Real> forward;
    CompiledKernel<Real> inverse;
};

#define QSVG_TEST_ENTRY(N) {N, qsvgDFTFwd_CToC_##N##_32fc, qsvgDFTInv_CToC_##N##_32fc},
constexpr Entry<float> kSingleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

#define QSVG_TEST_ENTRY(N) {N, qsvgDFTFwd_CToC_##N##_64fc, qsvgDFTInv_CToC_##N##_64fc},
constexpr Entry<double> kDoubleKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

template <class Real>
CompiledKernel<Real> find(std::span<const Entry<Real>> kernels, int length,
                          dft_complex::Direction direction) {
    const auto found = std::find_if(kernels.begin(), kernels.end(),
                                    [&](const Entry<Real>& e) { return e.length == length; });
    if (found == kernels.end())
        throw std::out_of_range("the header declares no kernel of length " +
                                std::to_string(length));
    const Entry<Real>& entry = *found;
    return direction == dft_complex::Direction::Forward ? entry.forward : entry.inverse;
}

}  // namespace

template <>
CompiledKernel<float> compiled_kernel<float>(int length, dft_complex::Direction direction) {
    return find<float>(kSingleKernels, length, direction);
}

template <>
CompiledKernel<double> compiled_kernel<double>(int length, dft_complex::Direction direction) {
    return find<double>(kDoubleKernels, length, direction);
}

}  // namespace dft_complex_test
