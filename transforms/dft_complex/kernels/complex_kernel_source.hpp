#pragma once

#include <string>

#include "transforms/dft_complex/kernels/complex_kernel.hpp"

namespace dft_complex {

/** The C++ file of one kernel: constants, arithmetic, the exported function and its twin. */
std::string kernel_source(const Kernel& kernel);

/** One line of the manifest: rule, counts, schedule, hashes of the source and of the values. */
std::string manifest_line(const Kernel& kernel);

/** Names the columns of manifest_line. */
std::string manifest_header();

/** The C++ file of the dispatcher by length. */
std::string dispatcher_source(Direction direction, Element element);

}  // namespace dft_complex
