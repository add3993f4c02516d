#pragma once

/**
 * @file
 * @brief How the library calculates a transform, told by the descriptions that its kernels are made
 * from during the build. Lengths have been checked.
 */

#include "explanation.hpp"
#include "request.hpp"

namespace qsvg_tool {

Explanation Explain(const Request& request);

Explanation ExplainDftComplex(const Request& request);
/** The DFT of real input and the Hartley transform. */
Explanation ExplainRealTransform(const Request& request);
Explanation ExplainWalshHadamard(const Request& request);
Explanation ExplainDct4(const Request& request);

}  // namespace qsvg_tool
