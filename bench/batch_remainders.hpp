#pragma once

#include <iosfwd>
#include <vector>

#include "batch_report.hpp"

namespace bench {

/**
 * How the cost of a transform depends on how many a call has: counts from 1 to 64 and around 256 of
 * some lengths, and of all lengths what a count of 1 and a count of 255 cost. FFTW takes no part.
 */
std::vector<BatchCase> RemainderCases();

/**
 * By family and layout: one of 255 transforms over one of 256, and how many nanoseconds more a
 * batch of one takes than the single call.
 */
void PrintRemainders(std::ostream& out, const BatchReport& report);

}  // namespace bench
