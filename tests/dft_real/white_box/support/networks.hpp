#pragma once

/**
 * @file
 * @brief The kernels whose networks the tests look at, each made and proven once.
 */

#include <string>

#include "transforms/dft_real/kernels/real_dft_kernel.hpp"
#include "transforms/hartley/hartley_kernel.hpp"

namespace dft_real_test {

using dft_real::Element;
using dft_real::Kind;
using dft_real::RealKernel;

inline constexpr Kind kKinds[] = {Kind::Forward, Kind::Inverse, Kind::Hartley};

/** The kernel of this kind, in the CCS layout where it has one. */
const RealKernel& kernel(int length, Kind kind, Element element = Element::Real32);

}  // namespace dft_real_test
