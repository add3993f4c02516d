#pragma once

#include <string>

#include "transforms/dct4/dct4_body.hpp"

namespace dct4 {

/** The C++ header of one body: its constants and the function template. */
std::string kernel_source(const Kernel& kernel);

/** Names the columns of manifest_line. */
std::string manifest_header();

/** One line of the manifest: counts, schedule, hashes of the source and of the values. */
std::string manifest_line(const Kernel& kernel);

}  // namespace dct4
