#pragma once

#include <functional>

#include "transforms/hartley/hartley_kernel.hpp"

namespace hartley_test {

/** The proven kernel, made when it is first asked for. */
const dft_real::RealKernel& kernel(int length, dft_real::Element element);

/** The 63 kernels of an element under a trace of their names; skips the rest once one failed
 * fatally. */
void for_each_kernel(dft_real::Element element,
                     const std::function<void(const dft_real::RealKernel&)>& check);

/** All 126 kernels. */
void for_each_kernel(const std::function<void(const dft_real::RealKernel&)>& check);

}  // namespace hartley_test
