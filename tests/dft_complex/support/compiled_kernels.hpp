#pragma once

#include "dft_complex/kernels.hpp"
#include "include/qsvgen.h"

namespace dft_complex_test {

using CompiledKernel = QsvStatus (*)(const Complex32* src, Complex32* dst, int32_t flag);

/** The library's own function of one length. */
CompiledKernel compiled_kernel(int length, dft_complex::Direction direction);

}  // namespace dft_complex_test
