#pragma once

/** @file @brief From the rule that a plan's node holds to code that is compiled for it. */

#include <cstdint>
#include <utility>

#include "qsvgen.h"

namespace dct4 {

/** Calls `run` with the rule, from 1 to kHighest, as its template argument; other rules are
 * qsvStatusBadPlan, and nothing is called. */
template <int kHighest, class Run>
[[gnu::always_inline]] inline QsvStatus for_rule(std::int32_t rule, const Run& run) {
    const auto run_if = [&]<int kRule>() {
        if (rule != kRule) return false;
        run.template operator()<kRule>();
        return true;
    };
    const bool is_known = [&]<int... kBefore>(std::integer_sequence<int, kBefore...>) {
        return (run_if.template operator()<kBefore + 1>() || ...);
    }
    (std::make_integer_sequence<int, kHighest>());
    return is_known ? qsvStatusOk : qsvStatusBadPlan;
}

}  // namespace dct4
