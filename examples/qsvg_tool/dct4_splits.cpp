#include "dct4_splits.hpp"

#include <stdexcept>

#include "dct4/operations.hpp"
#include "plan/factor_choice.hpp"

namespace qsvg_tool {
namespace {

namespace plans = dct4::QSVG_ELEMENT;

/** What the rules of a node call the one that has no body of its own. */
constexpr int32_t kSplitRoot = 6;
constexpr int32_t kSplitAnalysis = 7;

int32_t FactorOf(int32_t half_length) {
    int32_t factor = 0;
    if (divisorsIntNonTriv(&factor, half_length) != qsvStatusOk)
        throw std::logic_error("no factor splits a length of the DCT-IV");
    return factor;
}

}  // namespace

Dct4Splits SplitsOf(int32_t length) {
    Dct4Splits splits;
    const int32_t root_rule = plans::DCT4(env1__chooseRule)(length);
    if (root_rule != kSplitRoot) {
        splits.is_inline = true;
        splits.inline_rule = root_rule;
        return splits;
    }
    splits.factor = FactorOf(length / 2);
    splits.synthesis_rule = plans::DCT4(env4__chooseRule)(splits.factor);
    splits.analysis_length = length / splits.factor;
    int32_t points = splits.analysis_length;
    while (plans::DCT4(env5__chooseRule)(points) == kSplitAnalysis) {
        const int32_t factor = FactorOf(points / 2);
        splits.splits.push_back({points, factor, plans::DCT4(env8__chooseRule)(factor)});
        points /= factor;
    }
    splits.analysis_rule = plans::DCT4(env5__chooseRule)(points);
    return splits;
}

}  // namespace qsvg_tool
