#pragma once

#include <string>

namespace bench {

/** The processor's name as the kernel tells it. */
std::string CpuName();

/** Processors that this process may run on: 1 where it is pinned. */
int AllowedCpus();

}  // namespace bench
