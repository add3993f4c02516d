#pragma once

/**
 * @file
 * @brief What all transforms of qsvgen.hpp have in common: statuses, scales, and how arguments
 * become those of qsvgen.h.
 */

#include <qsvgen.h>

#include <array>
#include <complex>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

namespace qsvgen {

/**
 * @addtogroup cpp
 * @{
 */

/** One of the statuses of qsvgen.h: qsvStatusOk, which is 0, or a negative one. */
using Status = QsvStatus;

/** By what the result of a transform of length N is multiplied; the values are those of
 * #QsvScaleFlag, and any other is refused with #qsvStatusBadFlag. */
enum class Scale : std::int32_t {
    none = qsvScaleNone,         ///< all by 1
    fwd_by_n = qsvScaleFwdByN,   ///< forward, Hartley and Walsh-Hadamard by 1/N, inverse by 1
    inv_by_n = qsvScaleInvByN,   ///< inverse, Hartley and Walsh-Hadamard by 1/N, forward by 1
    by_sqrt_n = qsvScaleBySqrtN  ///< all by 1/sqrt(N)
};
/** The scales by their own names, too: qsvgen::by_sqrt_n. */
using enum Scale;

/** @} */

/** What is no part of the interface. */
namespace detail {

template <int N>
inline constexpr auto extent = static_cast<std::size_t>(N);

/** A constraint whose sentence compilers print where it does not hold. */
constexpr bool told(bool holds, [[maybe_unused]] const char* sentence) {
    return holds;
}

/** -1, which is refused, where a size is none of the interface's. */
template <std::integral Size>
constexpr std::int32_t size_of_call(Size size) {
    return std::in_range<std::int32_t>(size) ? static_cast<std::int32_t>(size) : -1;
}

constexpr std::int32_t flag_of(Scale scale) {
    return static_cast<std::int32_t>(scale);
}

// Arrays of std::complex may be read as arrays of its parts, the real one first.
inline const Complex32* elements(const std::complex<float>* x) {
    return reinterpret_cast<const Complex32*>(x);
}
inline Complex32* elements(std::complex<float>* x) {
    return reinterpret_cast<Complex32*>(x);
}
inline const Complex64* elements(const std::complex<double>* x) {
    return reinterpret_cast<const Complex64*>(x);
}
inline Complex64* elements(std::complex<double>* x) {
    return reinterpret_cast<Complex64*>(x);
}

/** The kernel of one size. Tables of them are for the compiler, which takes one out for each call;
 * no program holds any. */
template <class Element>
using kernel_of = Status (*)(const Element* src, Element* dst, std::int32_t flag);

template <class Array>
using span_of = decltype(std::span(std::declval<Array>()));

/** The size that is part of an array's type; std::dynamic_extent where none is. */
template <class Array>
inline constexpr std::size_t extent_of = std::dynamic_extent;
template <class T, std::size_t Size>
inline constexpr std::size_t extent_of<T[Size]> = Size;
template <class T, std::size_t Size>
inline constexpr std::size_t extent_of<std::array<T, Size>> = Size;
template <class T, std::size_t Size>
inline constexpr std::size_t extent_of<std::span<T, Size>> = Size;

template <class Array, std::size_t Extent>
concept of_extent_or_dynamic = Extent == extent_of<std::remove_cvref_t<Array>> ||
                               extent_of<std::remove_cvref_t<Array>> == std::dynamic_extent;

/** Arrays of which at least one tells its size at run time alone, as std::vector does, and of which
 * none is of another size. */
template <class In, std::size_t InExtent, class Out, std::size_t OutExtent>
concept sized_at_run_time =
    (extent_of<std::remove_cvref_t<In>> == std::dynamic_extent ||
     extent_of<std::remove_cvref_t<Out>> == std::dynamic_extent) &&
    of_extent_or_dynamic<In, InExtent>&& of_extent_or_dynamic<Out, OutExtent>&& requires {
    typename span_of<In>;
    typename span_of<Out>;
};

/** Calls transform(in, out) with spans of these extents, if the sizes are those. */
template <std::size_t InExtent, std::size_t OutExtent, class In, class Out, class Transform>
Status with_extents(In&& in, Out&& out, const Transform& transform) noexcept {
    const std::span x(std::forward<In>(in));
    const std::span y(std::forward<Out>(out));
    if (x.size() != InExtent || y.size() != OutExtent) return qsvStatusBadLength;
    return transform(x.template first<InExtent>(), y.template first<OutExtent>());
}

}  // namespace detail
}  // namespace qsvgen
