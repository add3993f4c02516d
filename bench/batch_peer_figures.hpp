#pragma once

#include <limits>
#include <map>
#include <string>

#include "batch_family.hpp"

namespace bench {

/** Times of the best peers as shares of the packaged FFTW's time; NaN where one was not measured.
 */
struct BatchPeerShares {
    double avx2 = std::numeric_limits<double>::quiet_NaN();  ///< of those with AVX2 at most
    double any = std::numeric_limits<double>::quiet_NaN();   ///< of all
};

/**
 * By length or order. `family` as in the file: real_forward_32. Empty where the file knows nothing
 * of such batches; throws std::runtime_error where it can't be read.
 */
std::map<int, BatchPeerShares> BatchPeerSharesOf(const std::string& path, const std::string& family,
                                                 BatchLayout layout, int count);

}  // namespace bench
