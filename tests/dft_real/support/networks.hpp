#pragma once

/**
 * @file
 * @brief The kernels whose networks the tests look at, each made and proven once.
 */

#include <string>

#include "dft_real/kernels.hpp"
#include "hartley/kernels.hpp"

namespace dft_real_test {

using dft_real::Element;
using dft_real::Kind;
using dft_real::RealKernel;

inline constexpr Kind kKinds[] = {Kind::Forward, Kind::Inverse, Kind::Hartley};

/** The kernel of this kind, in the CCS layout where it has one. */
const RealKernel& kernel(int length, Kind kind, Element element = Element::Real32);

}  // namespace dft_real_test
