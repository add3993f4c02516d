#pragma once

/**
 * @file
 * @brief The Hartley transform of qsvgen.h and qsvgen_batch.h in C++.
 */

#include <qsvgen_batch.h>

#include <cstddef>
#include <cstdint>
#include <qsvgen/batch.hpp>
#include <qsvgen/call.hpp>
#include <qsvgen/lengths.hpp>
#include <span>
#include <utility>

namespace qsvgen {

namespace detail {

#define QSVGEN_32F(N) qsvgHartley_##N##_32f,
#define QSVGEN_64F(N) qsvgHartley_##N##_64f,
inline constexpr kernel_of<Real32> kHartley32f[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_32F)};
inline constexpr kernel_of<Real64> kHartley64f[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_64F)};
#undef QSVGEN_32F
#undef QSVGEN_64F

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * Hartley transform of N points, by a direct call of its kernel.
 * @tparam N    a length with a kernel, 2 to 64, else a compile-time error
 * @param in    N elements
 * @param out   N elements; may be in
 * @param scale see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int N>
Status hartley(std::span<const float, detail::extent<N>> in,
               std::span<float, detail::extent<N>> out,
               Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kHartley32f[detail::place_of(N)];
    return kernel(in.data(), out.data(), detail::flag_of(scale));
}

/** The same in double precision. */
template <int N>
Status hartley(std::span<const double, detail::extent<N>> in,
               std::span<double, detail::extent<N>> out,
               Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kHartley64f[detail::place_of(N)];
    return kernel(in.data(), out.data(), detail::flag_of(scale));
}

/** Hartley transform of N points, of arrays one of which at least tells its size at run time alone:
 * #qsvStatusBadLength where that is not N. */
template <int N, class In, class Out>
[[nodiscard]] Status hartley(In&& in, Out&& out, Scale scale = Scale::none) noexcept requires
    kernel_length<N> && detail::sized_at_run_time<In, detail::extent<N>, Out, detail::extent<N>> {
    return detail::with_extents<detail::extent<N>, detail::extent<N>>(
        std::forward<In>(in), std::forward<Out>(out),
        [=](auto x, auto y) { return hartley<N>(x, y, scale); });
}

/**
 * Hartley transform of a length given at run time, which is the size of both arrays.
 * @param in    a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many elements, else #qsvStatusBadLength; may be in
 * @param scale see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status hartley(std::span<const float> in, std::span<float> out,
                                    Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgHartley_32f(in.data(), out.data(), detail::size_of_call(in.size()),
                           detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status hartley(std::span<const double> in, std::span<double> out,
                                    Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgHartley_64f(in.data(), out.data(), detail::size_of_call(in.size()),
                           detail::flag_of(scale));
}

/**
 * Hartley transforms, one each for the transforms of two views, in one call (see @ref batches).
 * @param in    of a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many transforms of that length, else #qsvStatusBadLength; may be in
 * @param scale see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status hartley(batch<const float> in, batch<float> out,
                                    Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchHartley_32f(detail::base_of(in), in.stride, in.distance, detail::base_of(out),
                                out.stride, out.distance, detail::size_of_call(in.length),
                                detail::size_of_call(in.count), detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status hartley(batch<const double> in, batch<double> out,
                                    Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchHartley_64f(detail::base_of(in), in.stride, in.distance, detail::base_of(out),
                                out.stride, out.distance, detail::size_of_call(in.length),
                                detail::size_of_call(in.count), detail::flag_of(scale));
}

/** @} */

}  // namespace qsvgen
