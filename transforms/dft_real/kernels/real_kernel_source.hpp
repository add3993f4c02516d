#pragma once

#include <string>

#include "transforms/dft_real/kernels/real_kernel.hpp"

namespace dft_real {

/** The C++ file of one kernel: constants, arithmetic and the exported function. */
std::string kernel_source(const RealKernel& kernel);

/** The C++ file of the dispatcher by length of a family. */
std::string dispatcher_source(const Family& family, Element element);

/** Names the columns of manifest_line. */
std::string manifest_header();

/** One line of the manifest: counts beside those of the table, schedule, hashes of the source and
 * of the values. */
std::string manifest_line(const RealKernel& kernel);

}  // namespace dft_real
