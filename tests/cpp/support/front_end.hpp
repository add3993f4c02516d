#pragma once

/** @file @brief The functions of qsvgen.hpp by direction and layout, as the tables of kernels name
 * them. */

#include <array>
#include <complex>
#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>

#include "qsvgen.hpp"
#include "support/kernel.hpp"

namespace qsvgen_test {

template <class E>
using CppElement = std::conditional_t<kIsReal<E>, typename E::Real, std::complex<typename E::Real>>;

template <class E>
const CppElement<E>* as_cpp(const typename E::Element* x) {
    return reinterpret_cast<const CppElement<E>*>(x);
}
template <class E>
CppElement<E>* as_cpp(typename E::Element* x) {
    return reinterpret_cast<CppElement<E>*>(x);
}

inline constexpr std::array<qsvgen::Scale, 4> kScales = {
    qsvgen::Scale::fwd_by_n, qsvgen::Scale::inv_by_n, qsvgen::Scale::by_sqrt_n,
    qsvgen::Scale::none};

template <class Visit>
QsvStatus with_layout(Layout layout, const Visit& visit) {
    switch (layout) {
        case Layout::Ccs:
            return visit(qsvgen::ccs);
        case Layout::Pack:
            return visit(qsvgen::pack);
        default:
            return visit(qsvgen::perm);
    }
}

/** The function that a kernel's direction and layout name, of spans or of batch views. */
template <class E, class In, class Out>
QsvStatus call_front_end(Direction direction, Layout layout, const In& in, const Out& out,
                         qsvgen::Scale scale) {
    if constexpr (!kIsReal<E>) {
        return direction == Direction::Forward ? qsvgen::dft(in, out, scale)
                                               : qsvgen::inverse_dft(in, out, scale);
    } else {
        if (direction == Direction::Both) return qsvgen::hartley(in, out, scale);
        return with_layout(layout, [&](auto tag) {
            return direction == Direction::Forward ? qsvgen::real_dft(in, out, tag, scale)
                                                   : qsvgen::inverse_real_dft(in, out, tag, scale);
        });
    }
}

/** The same of a length that the compiler knows. */
template <class E, int N>
QsvStatus call_front_end_of(Direction direction, Layout layout, const typename E::Element* src,
                            typename E::Element* dst, qsvgen::Scale scale) {
    using T = CppElement<E>;
    constexpr auto kSize = static_cast<std::size_t>(N);
    const auto* const x = as_cpp<E>(src);
    auto* const y = as_cpp<E>(dst);
    if constexpr (!kIsReal<E>) {
        const std::span<const T, kSize> in(x, kSize);
        const std::span<T, kSize> out(y, kSize);
        return direction == Direction::Forward ? qsvgen::dft<N>(in, out, scale)
                                               : qsvgen::inverse_dft<N>(in, out, scale);
    } else {
        if (direction == Direction::Both)
            return qsvgen::hartley<N>(std::span<const T, kSize>(x, kSize),
                                      std::span<T, kSize>(y, kSize), scale);
        return with_layout(layout, [&](auto tag) {
            constexpr std::size_t kSpectrum = decltype(tag)::size(kSize);
            if (direction == Direction::Forward)
                return qsvgen::real_dft<N>(std::span<const T, kSize>(x, kSize),
                                           std::span<T, kSpectrum>(y, kSpectrum), tag, scale);
            return qsvgen::inverse_real_dft<N>(std::span<const T, kSpectrum>(x, kSpectrum),
                                               std::span<T, kSize>(y, kSize), tag, scale);
        });
    }
}

template <class E>
using FrontEndCall = QsvStatus (*)(Direction direction, Layout layout,
                                   const typename E::Element* src, typename E::Element* dst,
                                   qsvgen::Scale scale);

template <class E, std::size_t... Places>
constexpr auto front_end_calls(std::index_sequence<Places...> /*places*/) {
    return std::array<FrontEndCall<E>, sizeof...(Places)>{
        call_front_end_of<E, kHeaderLengths[Places]>...};
}

/** One for each length, in the order of the header. */
template <class E>
inline constexpr auto kFrontEndCalls =
    front_end_calls<E>(std::make_index_sequence<static_cast<std::size_t>(kLengthCount)>{});

}  // namespace qsvgen_test
