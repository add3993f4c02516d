#pragma once

#include "command_line.hpp"

namespace qsvg_tool {

/** Reads, transforms block by block, and prints or plots. Throws example::Error. */
void TransformColumns(const CommandLine& command_line);

}  // namespace qsvg_tool
