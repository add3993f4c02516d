#pragma once

/**
 * @file
 * @brief Lengths and orders that have kernels.
 */

#include <qsvgen.h>

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <qsvgen/call.hpp>
#include <utility>

namespace qsvgen {

namespace detail {

#define QSVGEN_LENGTH(N) N,
inline constexpr int kLengths[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_LENGTH)};
#undef QSVGEN_LENGTH

/** Where the kernel of a length stands in tables that QSVG_FOR_EACH_LENGTH has made; behind them
 * where it has none. */
constexpr std::size_t place_of(std::integral auto length) {
    std::size_t place = 0;
    while (place < std::size(kLengths) && !std::cmp_equal(kLengths[place], length)) ++place;
    return place;
}

inline constexpr int kHighestOrder = 13;
/** From this order on a kernel passes through a work buffer. */
inline constexpr int kFirstLongOrder = 8;

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/** Whether the DFTs and the Hartley transform have a kernel of that length: 2 to 64. */
constexpr bool is_length(std::integral auto length) {
    return detail::place_of(length) < std::size(detail::kLengths);
}

/** Whether the Walsh-Hadamard transform has a kernel of that order: 1 to 13. */
constexpr bool is_order(std::integral auto order) {
    return std::cmp_greater_equal(order, 1) && std::cmp_less_equal(order, detail::kHighestOrder);
}

/** 2^order; 0 where there is no kernel. */
constexpr std::size_t length_of_order(int order) {
    return is_order(order) ? std::size_t{1} << order : 0;
}

/** A length that has kernels. */
template <int N>
concept kernel_length = detail::told(is_length(N), "the lengths with a kernel are 2 to 64");

/** An order that has a kernel. */
template <int K>
concept kernel_order =
    detail::told(is_order(K), "the orders with a kernel are 1 to 13, of the lengths 2 to 8192");

/** @} */

namespace detail {

template <int K>
inline constexpr std::size_t extent_of_order = length_of_order(K);

/** The order of a length; 0, which is refused, where that is no power of two. */
template <std::unsigned_integral Size>
constexpr std::int32_t order_of_call(Size length) {
    return std::has_single_bit(length) ? std::countr_zero(length) : 0;
}

}  // namespace detail
}  // namespace qsvgen
