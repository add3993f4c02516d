#pragma once

#include "include/qsvgen.h"
#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace dft_complex_test {

/** Complex elements of binary32 or binary64 parts. */
template <class Real>
struct ElementOf;

template <>
struct ElementOf<float> {
    using Complex = Complex32;
    static constexpr dft_complex::Element kElement = dft_complex::Element::Complex32;
};

template <>
struct ElementOf<double> {
    using Complex = Complex64;
    static constexpr dft_complex::Element kElement = dft_complex::Element::Complex64;
};

template <class Real>
using CompiledKernel = QsvStatus (*)(const typename ElementOf<Real>::Complex* src,
                                     typename ElementOf<Real>::Complex* dst, int32_t flag);

/** The library's own function of one length. */
template <class Real>
CompiledKernel<Real> compiled_kernel(int length, dft_complex::Direction direction);

}  // namespace dft_complex_test
