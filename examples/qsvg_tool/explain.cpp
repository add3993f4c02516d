#include "explain.hpp"

namespace qsvg_tool {

Explanation Explain(const Request& request) {
    switch (request.family) {
        case Family::kDftComplex:
            return ExplainDftComplex(request);
        case Family::kDftReal:
        case Family::kHartley:
            return ExplainRealTransform(request);
        case Family::kWalshHadamard:
            return ExplainWalshHadamard(request);
        case Family::kDct4:
            break;
    }
    return ExplainDct4(request);
}

}  // namespace qsvg_tool
