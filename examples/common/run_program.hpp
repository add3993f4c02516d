#pragma once

#include <functional>

namespace example {

/**
 * Runs a program's work and gives back its exit code. What the work throws is printed to standard
 * error after the program's name.
 */
int RunProgram(const char* name, const std::function<void()>& work);

}  // namespace example
