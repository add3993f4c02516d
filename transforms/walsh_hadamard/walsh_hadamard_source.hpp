#pragma once

#include <string>

#include "transforms/walsh_hadamard/walsh_hadamard_kernel.hpp"

namespace walsh_hadamard {

/** The C++ file of one kernel: scale factors, bodies, passes, the exported function, its twin. */
std::string kernel_source(const Kernel& kernel);

/** The C++ file of the dispatcher by order and of the query for the size of the work buffer. */
std::string dispatcher_source(Element element);

/** Names the columns of manifest_line. */
std::string manifest_header();

/** One line of the manifest: stages, counts, schedules, hashes of the source and of the
 * values. */
std::string manifest_line(const Kernel& kernel);

}  // namespace walsh_hadamard
