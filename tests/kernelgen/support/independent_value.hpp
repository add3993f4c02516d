#pragma once

/**
 * @file
 * @brief Values of exact constants by another arithmetic than the kernel compiler's own.
 */

#include <bit>
#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>

#include "kernelgen/graph/exact_constant.hpp"

namespace kernelgen_test {

using Independent = boost::multiprecision::number<
    boost::multiprecision::cpp_bin_float<200, boost::multiprecision::digit_base_2>,
    boost::multiprecision::et_off>;

/** Evaluates the expression of a constant with 200 bits. Remembers cosines. */
class IndependentEvaluator {
  public:
    /** A pinned constant counts as the constant that it stands for. */
    Independent ideal(const kernelgen::Exact& constant) { return evaluate(constant, false); }
    /** A pinned constant counts as its decimal. */
    Independent as_written(const kernelgen::Exact& constant) { return evaluate(constant, true); }

  private:
    Independent evaluate(const kernelgen::Exact& constant, bool decimals);
    Independent sum(const kernelgen::Exact::Expression& e, bool decimals);
    Independent cosine(long numerator, long denominator);

    std::map<std::pair<long, long>, Independent> cosines_;
};

/**
 * Whether no other number of the format lies nearer to `value`, and of two equally near ones the
 * candidate is the even one. Needs no rounding of its own, so it cannot round twice.
 */
template <class Float>
bool is_nearest(Float candidate, const Independent& value) {
    using Bits = std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>;
    constexpr Float kInfinity = std::numeric_limits<Float>::infinity();
    if (!std::isfinite(candidate)) return false;
    const auto midpoint_towards = [&](Float direction) {
        return Independent(
            (Independent(candidate) + Independent(std::nextafter(candidate, direction))) / 2);
    };
    const Independent low = midpoint_towards(-kInfinity);
    const Independent high = midpoint_towards(kInfinity);
    const bool even = (std::bit_cast<Bits>(candidate) & 1U) == 0;
    return (low < value && value < high) || (even && (value == low || value == high));
}

}  // namespace kernelgen_test
