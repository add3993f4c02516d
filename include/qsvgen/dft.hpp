#pragma once

/**
 * @file
 * @brief The complex DFT of qsvgen.h and qsvgen_batch.h in C++.
 */

#include <qsvgen_batch.h>

#include <complex>
#include <cstddef>
#include <cstdint>
#include <qsvgen/batch.hpp>
#include <qsvgen/call.hpp>
#include <qsvgen/lengths.hpp>
#include <span>
#include <utility>

namespace qsvgen {

namespace detail {

#define QSVGEN_FWD_32FC(N) qsvgDFTFwd_CToC_##N##_32fc,
#define QSVGEN_INV_32FC(N) qsvgDFTInv_CToC_##N##_32fc,
#define QSVGEN_FWD_64FC(N) qsvgDFTFwd_CToC_##N##_64fc,
#define QSVGEN_INV_64FC(N) qsvgDFTInv_CToC_##N##_64fc,
inline constexpr kernel_of<Complex32> kDftFwd32fc[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_FWD_32FC)};
inline constexpr kernel_of<Complex32> kDftInv32fc[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_INV_32FC)};
inline constexpr kernel_of<Complex64> kDftFwd64fc[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_FWD_64FC)};
inline constexpr kernel_of<Complex64> kDftInv64fc[] = {QSVG_FOR_EACH_LENGTH(QSVGEN_INV_64FC)};
#undef QSVGEN_FWD_32FC
#undef QSVGEN_INV_32FC
#undef QSVGEN_FWD_64FC
#undef QSVGEN_INV_64FC

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * Complex DFT of N points, by a direct call of its kernel.
 * @tparam N    a length with a kernel, 2 to 64, else a compile-time error
 * @param in    N elements
 * @param out   N elements; may be in
 * @param scale see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int N>
Status dft(std::span<const std::complex<float>, detail::extent<N>> in,
           std::span<std::complex<float>, detail::extent<N>> out,
           Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kDftFwd32fc[detail::place_of(N)];
    return kernel(detail::elements(in.data()), detail::elements(out.data()),
                  detail::flag_of(scale));
}

/** The same in double precision. */
template <int N>
Status dft(std::span<const std::complex<double>, detail::extent<N>> in,
           std::span<std::complex<double>, detail::extent<N>> out,
           Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kDftFwd64fc[detail::place_of(N)];
    return kernel(detail::elements(in.data()), detail::elements(out.data()),
                  detail::flag_of(scale));
}

/** Complex DFT of N points, of arrays one of which at least tells its size at run time alone:
 * #qsvStatusBadLength where that is not N. */
template <int N, class In, class Out>
[[nodiscard]] Status dft(In&& in, Out&& out, Scale scale = Scale::none) noexcept requires
    kernel_length<N> && detail::sized_at_run_time<In, detail::extent<N>, Out, detail::extent<N>> {
    return detail::with_extents<detail::extent<N>, detail::extent<N>>(
        std::forward<In>(in), std::forward<Out>(out),
        [=](auto x, auto y) { return dft<N>(x, y, scale); });
}

/**
 * Complex DFT of a length given at run time, which is the size of both arrays.
 * @param in    a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many elements, else #qsvStatusBadLength; may be in
 * @param scale see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status dft(std::span<const std::complex<float>> in,
                                std::span<std::complex<float>> out,
                                Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgDFTFwd_CToC_32fc(detail::elements(in.data()), detail::elements(out.data()),
                                detail::size_of_call(in.size()), detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status dft(std::span<const std::complex<double>> in,
                                std::span<std::complex<double>> out,
                                Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgDFTFwd_CToC_64fc(detail::elements(in.data()), detail::elements(out.data()),
                                detail::size_of_call(in.size()), detail::flag_of(scale));
}

/**
 * Complex DFTs, one each for the transforms of two views, in one call (see @ref batches).
 * @param in    of a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many transforms of that length, else #qsvStatusBadLength; may be in
 * @param scale see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status dft(batch<const std::complex<float>> in, batch<std::complex<float>> out,
                                Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchDFTFwd_CToC_32fc(detail::elements(detail::base_of(in)), in.stride, in.distance,
                                     detail::elements(detail::base_of(out)), out.stride,
                                     out.distance, detail::size_of_call(in.length),
                                     detail::size_of_call(in.count), detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status dft(batch<const std::complex<double>> in,
                                batch<std::complex<double>> out,
                                Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchDFTFwd_CToC_64fc(detail::elements(detail::base_of(in)), in.stride, in.distance,
                                     detail::elements(detail::base_of(out)), out.stride,
                                     out.distance, detail::size_of_call(in.length),
                                     detail::size_of_call(in.count), detail::flag_of(scale));
}

/**
 * Inverse complex DFT of N points, by a direct call of its kernel.
 * @tparam N    a length with a kernel, 2 to 64, else a compile-time error
 * @param in    N elements
 * @param out   N elements; may be in
 * @param scale see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int N>
Status inverse_dft(std::span<const std::complex<float>, detail::extent<N>> in,
                   std::span<std::complex<float>, detail::extent<N>> out,
                   Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kDftInv32fc[detail::place_of(N)];
    return kernel(detail::elements(in.data()), detail::elements(out.data()),
                  detail::flag_of(scale));
}

/** The same in double precision. */
template <int N>
Status inverse_dft(std::span<const std::complex<double>, detail::extent<N>> in,
                   std::span<std::complex<double>, detail::extent<N>> out,
                   Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::kDftInv64fc[detail::place_of(N)];
    return kernel(detail::elements(in.data()), detail::elements(out.data()),
                  detail::flag_of(scale));
}

/** Inverse complex DFT of N points, of arrays one of which at least tells its size at run time
 * alone: #qsvStatusBadLength where that is not N. */
template <int N, class In, class Out>
[[nodiscard]] Status inverse_dft(In&& in, Out&& out, Scale scale = Scale::none) noexcept requires
    kernel_length<N> && detail::sized_at_run_time<In, detail::extent<N>, Out, detail::extent<N>> {
    return detail::with_extents<detail::extent<N>, detail::extent<N>>(
        std::forward<In>(in), std::forward<Out>(out),
        [=](auto x, auto y) { return inverse_dft<N>(x, y, scale); });
}

/**
 * Inverse complex DFT of a length given at run time, which is the size of both arrays.
 * @param in    a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many elements, else #qsvStatusBadLength; may be in
 * @param scale see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status inverse_dft(std::span<const std::complex<float>> in,
                                        std::span<std::complex<float>> out,
                                        Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgDFTInv_CToC_32fc(detail::elements(in.data()), detail::elements(out.data()),
                                detail::size_of_call(in.size()), detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status inverse_dft(std::span<const std::complex<double>> in,
                                        std::span<std::complex<double>> out,
                                        Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgDFTInv_CToC_64fc(detail::elements(in.data()), detail::elements(out.data()),
                                detail::size_of_call(in.size()), detail::flag_of(scale));
}

/**
 * Inverse complex DFTs, one each for the transforms of two views, in one call (see @ref batches).
 * @param in    of a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param out   as many transforms of that length, else #qsvStatusBadLength; may be in
 * @param scale see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status inverse_dft(batch<const std::complex<float>> in,
                                        batch<std::complex<float>> out,
                                        Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchDFTInv_CToC_32fc(detail::elements(detail::base_of(in)), in.stride, in.distance,
                                     detail::elements(detail::base_of(out)), out.stride,
                                     out.distance, detail::size_of_call(in.length),
                                     detail::size_of_call(in.count), detail::flag_of(scale));
}

/** The same in double precision. */
[[nodiscard]] inline Status inverse_dft(batch<const std::complex<double>> in,
                                        batch<std::complex<double>> out,
                                        Scale scale = Scale::none) noexcept {
    if (!detail::is_alike(in, out)) return qsvStatusBadLength;
    return qsvgBatchDFTInv_CToC_64fc(detail::elements(detail::base_of(in)), in.stride, in.distance,
                                     detail::elements(detail::base_of(out)), out.stride,
                                     out.distance, detail::size_of_call(in.length),
                                     detail::size_of_call(in.count), detail::flag_of(scale));
}

/** @} */

}  // namespace qsvgen
