#pragma once

#include <string>
#include <vector>

#include "report.hpp"

namespace bench {

/** A ratio over several lengths. */
struct SummaryLine {
    std::string of;  ///< which lengths, which ratio
    double geometric_mean = 1;
    double worst = 0;
    int worst_length = 0;
    int lengths = 0;
};

/** Every ratio, by family, over all lengths and over the primes from 17. */
std::vector<SummaryLine> Summarise(const Report& report);

}  // namespace bench
