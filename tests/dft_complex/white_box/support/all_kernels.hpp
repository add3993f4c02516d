#pragma once

#include <functional>
#include <string>

#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace dft_complex_test {

using dft_complex::Direction;
using dft_complex::Element;
using dft_complex::kDirections;
using dft_complex::kElements;
using dft_complex::Kernel;

/** The proven kernel, made when it is first asked for. */
const Kernel& kernel(int length, Direction direction, Element element);

/** All 252 kernels under a trace of length, direction and element; skips the rest once one failed
 * fatally. */
void for_each_kernel(const std::function<void(const Kernel&)>& check);

/** The 126 kernels of one element type. */
void for_each_kernel(Element element, const std::function<void(const Kernel&)>& check);

const char* name_of(Direction direction);

/** "inverse, 64fc, length 45" */
std::string describe(int length, Direction direction, Element element);

}  // namespace dft_complex_test
