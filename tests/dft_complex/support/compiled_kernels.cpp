#include "tests/dft_complex/support/compiled_kernels.hpp"

namespace dft_complex_test {
namespace {

struct Entry {
    CompiledKernel forward;
    CompiledKernel inverse;
};

#define QSVG_TEST_ENTRY(N) {qsvgDFTFwd_CToC_##N##_32fc, qsvgDFTInv_CToC_##N##_32fc},
constexpr Entry kKernels[] = {QSVG_FOR_EACH_LENGTH(QSVG_TEST_ENTRY)};
#undef QSVG_TEST_ENTRY

}  // namespace

CompiledKernel compiled_kernel(int length, dft_complex::Direction direction) {
    const Entry& entry = kKernels[length - 2];
    return direction == dft_complex::Direction::Forward ? entry.forward : entry.inverse;
}

}  // namespace dft_complex_test
