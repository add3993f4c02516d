#pragma once

#include <functional>

namespace bench {

/** Core cycles in one cycle of the TSC, by a chain of additions that take one cycle each. */
double CoreCyclesPerTscCycle();

/**
 * The same at once after milliseconds of `work`, again and again: less where the processor slows
 * its clock for what the work consists of.
 */
double CoreCyclesPerTscCycleAfter(const std::function<void()>& work);

}  // namespace bench
