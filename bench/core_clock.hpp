#pragma once

namespace bench {

/** Core cycles in one cycle of the TSC, by a chain of additions that take one cycle each. */
double CoreCyclesPerTscCycle();

}  // namespace bench
