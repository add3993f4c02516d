#include "dct4/operations.hpp"

namespace {

constexpr std::int32_t kNoRule = 0;

/** k for 2^k up to `highest`, else `otherwise`: a rule is the logarithm of what it computes. */
constexpr std::int32_t rule_of(std::int32_t value, std::int32_t highest, std::int32_t otherwise) {
    for (std::int32_t rule = 1; rule <= highest; ++rule) {
        if (value == 1 << rule) return rule;
    }
    return otherwise;
}

}  // namespace

namespace dct4::QSVG_ELEMENT {
extern "C" {

std::int32_t DCT4(env1__chooseRule)(std::int32_t length) {
    return rule_of(length, 5, 6);
}

std::int32_t DCT4(env4__chooseRule)(std::int32_t factor) {
    // Rotations of one column have a kernel, too, so that the rules begin a factor earlier.
    if (factor == 1) return 1;
    const std::int32_t logarithm = rule_of(factor, 5, kNoRule);
    return logarithm == kNoRule ? kNoRule : logarithm + 1;
}

std::int32_t DCT4(env5__chooseRule)(std::int32_t sub_length) {
    return rule_of(sub_length, 6, 7);
}

std::int32_t DCT4(env8__chooseRule)(std::int32_t factor) {
    return rule_of(factor, 5, kNoRule);
}

std::int32_t DCT4(env9__chooseRule)(std::int32_t sub_length) {
    return rule_of(sub_length, 6, 7);
}
}
}  // namespace dct4::QSVG_ELEMENT
