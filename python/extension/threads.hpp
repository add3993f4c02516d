#pragma once

/** @file @brief A call's work shared out among threads. */

#include <functional>

namespace python {

/** Calls part(0) here and part(1) to part(parts - 1) in threads of their own, and returns when all
 * are done. Threads end with the call, so that a fork between calls finds none. Where the system
 * gives no more threads, their parts run here. */
void in_threads(int parts, const std::function<void(int)>& part);

}  // namespace python
