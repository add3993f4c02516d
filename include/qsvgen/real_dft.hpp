#pragma once

/**
 * @file
 * @brief The DFT of real input of qsvgen.h and qsvgen_batch.h in C++.
 */

#include <qsvgen_batch.h>

#include <cstddef>
#include <cstdint>
#include <qsvgen/batch.hpp>
#include <qsvgen/call.hpp>
#include <qsvgen/layout.hpp>
#include <qsvgen/lengths.hpp>
#include <span>
#include <utility>

namespace qsvgen {

namespace detail {

/** The functions of a layout and an element type. */
template <spectrum_layout Layout, class Real>
struct RealDft;

#define QSVGEN_FWD_CCS_32f(N) qsvgDFTFwd_RToCCS_##N##_32f,
#define QSVGEN_INV_CCS_32f(N) qsvgDFTInv_CCSToR_##N##_32f,
#define QSVGEN_FWD_CCS_64f(N) qsvgDFTFwd_RToCCS_##N##_64f,
#define QSVGEN_INV_CCS_64f(N) qsvgDFTInv_CCSToR_##N##_64f,
#define QSVGEN_FWD_Pack_32f(N) qsvgDFTFwd_RToPack_##N##_32f,
#define QSVGEN_INV_Pack_32f(N) qsvgDFTInv_PackToR_##N##_32f,
#define QSVGEN_FWD_Pack_64f(N) qsvgDFTFwd_RToPack_##N##_64f,
#define QSVGEN_INV_Pack_64f(N) qsvgDFTInv_PackToR_##N##_64f,
#define QSVGEN_FWD_Perm_32f(N) qsvgDFTFwd_RToPerm_##N##_32f,
#define QSVGEN_INV_Perm_32f(N) qsvgDFTInv_PermToR_##N##_32f,
#define QSVGEN_FWD_Perm_64f(N) qsvgDFTFwd_RToPerm_##N##_64f,
#define QSVGEN_INV_Perm_64f(N) qsvgDFTInv_PermToR_##N##_64f,
#define QSVGEN_REAL_DFT(Layout, Element, name, type)                             \
    template <>                                                                  \
    struct RealDft<Layout, Element> {                                            \
        static constexpr kernel_of<Element> kFwd[] = {                           \
            QSVG_FOR_EACH_LENGTH(QSVGEN_FWD_##name##_##type)};                   \
        static constexpr kernel_of<Element> kInv[] = {                           \
            QSVG_FOR_EACH_LENGTH(QSVGEN_INV_##name##_##type)};                   \
        static constexpr auto kFwdOfAny = &qsvgDFTFwd_RTo##name##_##type;        \
        static constexpr auto kInvOfAny = &qsvgDFTInv_##name##ToR_##type;        \
        static constexpr auto kFwdOfBatch = &qsvgBatchDFTFwd_RTo##name##_##type; \
        static constexpr auto kInvOfBatch = &qsvgBatchDFTInv_##name##ToR_##type; \
    };
QSVGEN_REAL_DFT(Ccs, float, CCS, 32f)
QSVGEN_REAL_DFT(Ccs, double, CCS, 64f)
QSVGEN_REAL_DFT(Pack, float, Pack, 32f)
QSVGEN_REAL_DFT(Pack, double, Pack, 64f)
QSVGEN_REAL_DFT(Perm, float, Perm, 32f)
QSVGEN_REAL_DFT(Perm, double, Perm, 64f)
#undef QSVGEN_REAL_DFT
#undef QSVGEN_FWD_CCS_32f
#undef QSVGEN_INV_CCS_32f
#undef QSVGEN_FWD_CCS_64f
#undef QSVGEN_INV_CCS_64f
#undef QSVGEN_FWD_Pack_32f
#undef QSVGEN_INV_Pack_32f
#undef QSVGEN_FWD_Pack_64f
#undef QSVGEN_INV_Pack_64f
#undef QSVGEN_FWD_Perm_32f
#undef QSVGEN_INV_Perm_32f
#undef QSVGEN_FWD_Perm_64f
#undef QSVGEN_INV_Perm_64f

template <class Layout, int N>
inline constexpr std::size_t spectrum_extent = Layout::size(extent<N>);

/** Whether these are spectra of these signals, by number and size. */
template <class Layout, class Signal, class Spectrum>
constexpr bool fits(const batch<Signal>& signal, const batch<Spectrum>& spectrum) {
    // None longer has a kernel, and of none shorter is a size told.
    return is_length(signal.length) && signal.count == spectrum.count &&
           std::cmp_equal(spectrum.length, Layout::size(static_cast<std::size_t>(signal.length)));
}

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * DFT of a real signal of N points, by a direct call of its kernel.
 * @tparam N       a length with a kernel, 2 to 64, else a compile-time error
 * @param signal   N elements
 * @param spectrum Layout::size(N) elements; may be signal in the layouts of N elements
 * @param layout   ccs, pack or perm
 * @param scale    see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int N, spectrum_layout Layout>
Status real_dft(std::span<const float, detail::extent<N>> signal,
                std::span<float, detail::spectrum_extent<Layout, N>> spectrum,
                [[maybe_unused]] Layout layout,
                Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::RealDft<Layout, float>::kFwd[detail::place_of(N)];
    return kernel(signal.data(), spectrum.data(), detail::flag_of(scale));
}

/** The same in double precision. */
template <int N, spectrum_layout Layout>
Status real_dft(std::span<const double, detail::extent<N>> signal,
                std::span<double, detail::spectrum_extent<Layout, N>> spectrum,
                [[maybe_unused]] Layout layout,
                Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::RealDft<Layout, double>::kFwd[detail::place_of(N)];
    return kernel(signal.data(), spectrum.data(), detail::flag_of(scale));
}

/** DFT of a real signal of N points, of arrays one of which at least tells its size at run time
 * alone: #qsvStatusBadLength where that is another than above. */
template <int N, class In, class Out, spectrum_layout Layout>
[[nodiscard]] Status real_dft(In&& signal, Out&& spectrum, Layout layout,
                              Scale scale = Scale::none) noexcept requires kernel_length<N> &&
    detail::sized_at_run_time<In, detail::extent<N>, Out, detail::spectrum_extent<Layout, N>> {
    return detail::with_extents<detail::extent<N>, detail::spectrum_extent<Layout, N>>(
        std::forward<In>(signal), std::forward<Out>(spectrum),
        [=](auto x, auto y) { return real_dft<N>(x, y, layout, scale); });
}

/**
 * DFT of a real signal of a length given at run time.
 * @param signal   a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param spectrum Layout::size of the signal's size, else #qsvStatusBadLength
 * @param layout   ccs, pack or perm
 * @param scale    see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <spectrum_layout Layout>
[[nodiscard]] Status real_dft(std::span<const float> signal, std::span<float> spectrum,
                              [[maybe_unused]] Layout layout, Scale scale = Scale::none) noexcept {
    if (spectrum.size() != Layout::size(signal.size())) return qsvStatusBadLength;
    return detail::RealDft<Layout, float>::kFwdOfAny(signal.data(), spectrum.data(),
                                                     detail::size_of_call(signal.size()),
                                                     detail::flag_of(scale));
}

/** The same in double precision. */
template <spectrum_layout Layout>
[[nodiscard]] Status real_dft(std::span<const double> signal, std::span<double> spectrum,
                              [[maybe_unused]] Layout layout, Scale scale = Scale::none) noexcept {
    if (spectrum.size() != Layout::size(signal.size())) return qsvStatusBadLength;
    return detail::RealDft<Layout, double>::kFwdOfAny(signal.data(), spectrum.data(),
                                                      detail::size_of_call(signal.size()),
                                                      detail::flag_of(scale));
}

/**
 * DFTs of real signals, one each for the transforms of two views, in one call (see @ref batches).
 * @param signal   of a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param spectrum as many, of Layout::size of that length, else #qsvStatusBadLength
 * @param layout   ccs, pack or perm
 * @param scale    see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <spectrum_layout Layout>
[[nodiscard]] Status real_dft(batch<const float> signal, batch<float> spectrum,
                              [[maybe_unused]] Layout layout, Scale scale = Scale::none) noexcept {
    if (!detail::fits<Layout>(signal, spectrum)) return qsvStatusBadLength;
    return detail::RealDft<Layout, float>::kFwdOfBatch(
        detail::base_of(signal), signal.stride, signal.distance, detail::base_of(spectrum),
        spectrum.stride, spectrum.distance, detail::size_of_call(signal.length),
        detail::size_of_call(signal.count), detail::flag_of(scale));
}

/** The same in double precision. */
template <spectrum_layout Layout>
[[nodiscard]] Status real_dft(batch<const double> signal, batch<double> spectrum,
                              [[maybe_unused]] Layout layout, Scale scale = Scale::none) noexcept {
    if (!detail::fits<Layout>(signal, spectrum)) return qsvStatusBadLength;
    return detail::RealDft<Layout, double>::kFwdOfBatch(
        detail::base_of(signal), signal.stride, signal.distance, detail::base_of(spectrum),
        spectrum.stride, spectrum.distance, detail::size_of_call(signal.length),
        detail::size_of_call(signal.count), detail::flag_of(scale));
}

/**
 * Real signal of N points of a spectrum, by a direct call of its kernel.
 * @tparam N       a length with a kernel, 2 to 64, else a compile-time error
 * @param spectrum Layout::size(N) elements; the zeros of Ccs are not read
 * @param signal   N elements; may be spectrum in the layouts of N elements
 * @param layout   ccs, pack or perm
 * @param scale    see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int N, spectrum_layout Layout>
Status inverse_real_dft(std::span<const float, detail::spectrum_extent<Layout, N>> spectrum,
                        std::span<float, detail::extent<N>> signal, [[maybe_unused]] Layout layout,
                        Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::RealDft<Layout, float>::kInv[detail::place_of(N)];
    return kernel(spectrum.data(), signal.data(), detail::flag_of(scale));
}

/** The same in double precision. */
template <int N, spectrum_layout Layout>
Status inverse_real_dft(std::span<const double, detail::spectrum_extent<Layout, N>> spectrum,
                        std::span<double, detail::extent<N>> signal, [[maybe_unused]] Layout layout,
                        Scale scale = Scale::none) noexcept requires kernel_length<N> {
    constexpr auto kernel = detail::RealDft<Layout, double>::kInv[detail::place_of(N)];
    return kernel(spectrum.data(), signal.data(), detail::flag_of(scale));
}

/** Real signal of N points of a spectrum, of arrays one of which at least tells its size at run
 * time alone: #qsvStatusBadLength where that is another than above. */
template <int N, class In, class Out, spectrum_layout Layout>
[[nodiscard]] Status inverse_real_dft(In&& spectrum, Out&& signal, Layout layout,
                                      Scale scale = Scale::none) noexcept requires
    kernel_length<N> &&
    detail::sized_at_run_time<In, detail::spectrum_extent<Layout, N>, Out, detail::extent<N>> {
    return detail::with_extents<detail::spectrum_extent<Layout, N>, detail::extent<N>>(
        std::forward<In>(spectrum), std::forward<Out>(signal),
        [=](auto x, auto y) { return inverse_real_dft<N>(x, y, layout, scale); });
}

/**
 * Real signal of a length given at run time, of a spectrum.
 * @param spectrum Layout::size of the signal's size, else #qsvStatusBadLength; the zeros of Ccs are
 * not read
 * @param signal   a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param layout   ccs, pack or perm
 * @param scale    see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <spectrum_layout Layout>
[[nodiscard]] Status inverse_real_dft(std::span<const float> spectrum, std::span<float> signal,
                                      [[maybe_unused]] Layout layout,
                                      Scale scale = Scale::none) noexcept {
    if (spectrum.size() != Layout::size(signal.size())) return qsvStatusBadLength;
    return detail::RealDft<Layout, float>::kInvOfAny(spectrum.data(), signal.data(),
                                                     detail::size_of_call(signal.size()),
                                                     detail::flag_of(scale));
}

/** The same in double precision. */
template <spectrum_layout Layout>
[[nodiscard]] Status inverse_real_dft(std::span<const double> spectrum, std::span<double> signal,
                                      [[maybe_unused]] Layout layout,
                                      Scale scale = Scale::none) noexcept {
    if (spectrum.size() != Layout::size(signal.size())) return qsvStatusBadLength;
    return detail::RealDft<Layout, double>::kInvOfAny(spectrum.data(), signal.data(),
                                                      detail::size_of_call(signal.size()),
                                                      detail::flag_of(scale));
}

/**
 * Real signals of spectra, one each for the transforms of two views, in one call (see @ref
 * batches).
 * @param spectrum as many, of Layout::size of that length, else #qsvStatusBadLength; the
 *                 zeros of Ccs are not read
 * @param signal   of a length with a kernel, 2 to 64, else #qsvStatusBadLength
 * @param layout   ccs, pack or perm
 * @param scale    see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <spectrum_layout Layout>
[[nodiscard]] Status inverse_real_dft(batch<const float> spectrum, batch<float> signal,
                                      [[maybe_unused]] Layout layout,
                                      Scale scale = Scale::none) noexcept {
    if (!detail::fits<Layout>(signal, spectrum)) return qsvStatusBadLength;
    return detail::RealDft<Layout, float>::kInvOfBatch(
        detail::base_of(spectrum), spectrum.stride, spectrum.distance, detail::base_of(signal),
        signal.stride, signal.distance, detail::size_of_call(signal.length),
        detail::size_of_call(signal.count), detail::flag_of(scale));
}

/** The same in double precision. */
template <spectrum_layout Layout>
[[nodiscard]] Status inverse_real_dft(batch<const double> spectrum, batch<double> signal,
                                      [[maybe_unused]] Layout layout,
                                      Scale scale = Scale::none) noexcept {
    if (!detail::fits<Layout>(signal, spectrum)) return qsvStatusBadLength;
    return detail::RealDft<Layout, double>::kInvOfBatch(
        detail::base_of(spectrum), spectrum.stride, spectrum.distance, detail::base_of(signal),
        signal.stride, signal.distance, detail::size_of_call(signal.length),
        detail::size_of_call(signal.count), detail::flag_of(scale));
}

/** @} */

}  // namespace qsvgen
