#pragma once

#include <functional>
#include <string>

#include "transforms/dft_real/kernels/real_dft_kernel.hpp"

namespace dft_real_test {

using dft_real::Direction;
using dft_real::Element;
using dft_real::kDirections;
using dft_real::kElements;
using dft_real::kLayouts;
using dft_real::Layout;
using dft_real::RealKernel;

/** The proven kernel, made when it is first asked for. */
const RealKernel& kernel(int length, Direction direction, Layout layout, Element element);

/** What tells one kernel from the others. */
struct Kernel {
    int length;
    Direction direction;
    Layout layout;
    Element element;

    const RealKernel& made() const { return kernel(length, direction, layout, element); }
    int inputs() const;
    int outputs() const;
};

/** All 756 kernels under a trace of their names; skips the rest once one failed fatally. */
void for_each_kernel(const std::function<void(const Kernel&)>& check);

/** Those of one direction. */
void for_each_kernel(Direction direction, const std::function<void(const Kernel&)>& check);

}  // namespace dft_real_test
