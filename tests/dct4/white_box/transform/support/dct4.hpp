#pragma once

/** @file @brief The transform of one element type, by plans in buffers of their own. */

#include <cstring>
#include <map>
#include <memory>
#include <type_traits>
#include <vector>

#include "dct4/compute.hpp"
#include "support/bits.hpp"
#include "support/placed_array.hpp"
#include "support/signals.hpp"
#include "tests/dct4/white_box/plans/support/plan_buffer.hpp"

namespace qsvgen_test {

using E = std::conditional_t<kSingle, RealSingle, RealDouble>;
using Signal = std::vector<Real>;
using Array = PlacedArray<Real>;

inline Plan* plan_of(PlanBuffer& plan) {
    return reinterpret_cast<Plan*>(&plan.root());
}

/** A plan for each length, made once. */
inline PlanBuffer& plan_for(std::int32_t length) {
    static std::map<std::int32_t, std::unique_ptr<PlanBuffer>> plans;
    auto& plan = plans[length];
    if (plan == nullptr) plan = std::make_unique<PlanBuffer>(length);
    return *plan;
}

/** Out of place on aligned arrays, over a destination of NaN. */
inline Signal transformed(PlanBuffer& plan, const Signal& x) {
    Array source(x.size(), 0);
    Array destination(x.size(), 0, std::byte{0xFF});
    source.set(x);
    EXPECT_EQ(qsvStatusOk, EXPORTED(DCT4)(source.data(), destination.data(), plan_of(plan)));
    return destination.get();
}

inline Signal transformed(const Signal& x) {
    return transformed(plan_for(static_cast<std::int32_t>(x.size())), x);
}

/** Powers of two from 2 to `last`. */
inline std::vector<std::int32_t> transform_lengths(std::int32_t last) {
    std::vector<std::int32_t> lengths;
    for (std::int32_t length = 2; length <= last; length *= 2) lengths.push_back(length);
    return lengths;
}

inline std::vector<long double> widened(const Signal& x) {
    return {x.begin(), x.end()};
}

}  // namespace qsvgen_test
