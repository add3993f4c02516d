#pragma once

#include <functional>

#include "dft_complex/kernels.hpp"

namespace dft_complex_test {

using dft_complex::Direction;
using dft_complex::Kernel;

/** The proven kernel, made when it is first asked for. */
const Kernel& kernel(int length, Direction direction);

/** All 126 kernels under a trace of length and direction; skips the rest once one failed fatally.
 */
void for_each_kernel(const std::function<void(const Kernel&)>& check);

const char* name_of(Direction direction);

}  // namespace dft_complex_test
