#pragma once

/**
 * @file
 * @brief The Walsh-Hadamard transform of qsvgen.h and qsvgen_batch.h in C++.
 */

#include <qsvgen_batch.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <qsvgen/batch.hpp>
#include <qsvgen/call.hpp>
#include <qsvgen/lengths.hpp>
#include <span>
#include <type_traits>
#include <utility>

namespace qsvgen {

namespace detail {

/** The kernel of an order that passes through a work buffer. */
template <class Real>
using long_kernel_of = Status (*)(const Real* src, Real* dst, std::int32_t flag,
                                  std::uint8_t* buffer);

#define QSVGEN_32F(K) qsvgWHT_##K##_32f,
#define QSVGEN_64F(K) qsvgWHT_##K##_64f,
inline constexpr kernel_of<Real32> kShortWht32f[] = {QSVG_FOR_EACH_SHORT_ORDER(QSVGEN_32F)};
inline constexpr kernel_of<Real64> kShortWht64f[] = {QSVG_FOR_EACH_SHORT_ORDER(QSVGEN_64F)};
inline constexpr long_kernel_of<Real32> kLongWht32f[] = {QSVG_FOR_EACH_LONG_ORDER(QSVGEN_32F)};
inline constexpr long_kernel_of<Real64> kLongWht64f[] = {QSVG_FOR_EACH_LONG_ORDER(QSVGEN_64F)};
#undef QSVGEN_32F
#undef QSVGEN_64F

/** Bytes of work buffers in units of 1024, from order kFirstLongOrder on. */
inline constexpr std::size_t kWorkKibibytes32f[] = {1, 2, 4, 8, 18, 34};
inline constexpr std::size_t kWorkKibibytes64f[] = {2, 4, 8, 18, 34, 72};

template <class Real>
constexpr std::size_t work_bytes(int order) {
    if (order < kFirstLongOrder) return 0;
    const auto place = static_cast<std::size_t>(order - kFirstLongOrder);
    return 1024 * (std::is_same_v<Real, float> ? kWorkKibibytes32f : kWorkKibibytes64f)[place];
}

/** Of order K, with a work buffer or null. */
template <int K>
Status walsh_hadamard_of_order(const float* in, float* out, Scale scale,
                               [[maybe_unused]] std::uint8_t* work) noexcept {
    if constexpr (K < kFirstLongOrder) {
        constexpr auto kernel = kShortWht32f[K - 1];
        return kernel(in, out, flag_of(scale));
    } else {
        constexpr auto kernel = kLongWht32f[K - kFirstLongOrder];
        return kernel(in, out, flag_of(scale), work);
    }
}
template <int K>
Status walsh_hadamard_of_order(const double* in, double* out, Scale scale,
                               [[maybe_unused]] std::uint8_t* work) noexcept {
    if constexpr (K < kFirstLongOrder) {
        constexpr auto kernel = kShortWht64f[K - 1];
        return kernel(in, out, flag_of(scale));
    } else {
        constexpr auto kernel = kLongWht64f[K - kFirstLongOrder];
        return kernel(in, out, flag_of(scale), work);
    }
}

/** With a work buffer for orders up to the highest one, or null. */
template <class Real>
Status walsh_hadamard_of_batch(batch<const Real> in, batch<Real> out, Scale scale,
                               std::uint8_t* work, int highest_order) noexcept {
    constexpr auto call = [] {
        if constexpr (std::is_same_v<Real, float>) {
            return &qsvgBatchWHT_32f;
        } else {
            return &qsvgBatchWHT_64f;
        }
    }();
    if (!is_alike(in, out) || std::cmp_greater(in.length, length_of_order(highest_order)))
        return qsvStatusBadLength;
    const std::int32_t order =
        in.length < 0 ? 0 : order_of_call(static_cast<std::size_t>(in.length));
    return call(base_of(in), in.stride, in.distance, base_of(out), out.stride, out.distance, order,
                size_of_call(in.count), flag_of(scale), work);
}

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * What Walsh-Hadamard transforms from order 8 on need to run without taking memory: 1 to 72 KiB.
 * Holds nothing before or after a call; calls at the same time need one each.
 * @tparam Real  float or double
 * @tparam Order the highest order that it is for; lower ones may use it, too
 */
template <class Real, int Order = detail::kHighestOrder>
requires kernel_order<Order>
class WalshHadamardWork {
  public:
    /** Null for orders that need none. */
    std::uint8_t* data() noexcept { return kBytes == 0 ? nullptr : bytes_.data(); }
    /** In bytes. */
    static constexpr std::size_t size() noexcept { return kBytes; }
    /** The highest order that it is for. */
    static constexpr int order() noexcept { return Order; }

  private:
    static constexpr std::size_t kBytes = detail::work_bytes<Real>(Order);
    alignas(16) std::array<std::uint8_t, kBytes> bytes_;
};

namespace detail {

/** A class of its own, so that no order of a call is taken for that of the work buffer. */
template <class Work, class Real>
concept work_of = std::same_as<Work, WalshHadamardWork<Real, Work::order()>>;

}  // namespace detail

/**
 * Walsh-Hadamard transform of 2^K points, by a direct call of its kernel. From order 8 on the
 * library takes a block of memory for the call and gives it back; if there is none, the program
 * crashes (see @ref walsh_hadamard). With a WalshHadamardWork it does neither.
 * @tparam K    an order with a kernel, 1 to 13, else a compile-time error
 * @param in    2^K elements
 * @param out   2^K elements; may be in
 * @param scale see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int K>
Status walsh_hadamard(std::span<const float, detail::extent_of_order<K>> in,
                      std::span<float, detail::extent_of_order<K>> out,
                      Scale scale = Scale::none) noexcept requires kernel_order<K> {
    return detail::walsh_hadamard_of_order<K>(in.data(), out.data(), scale, nullptr);
}

/** The same in double precision. */
template <int K>
Status walsh_hadamard(std::span<const double, detail::extent_of_order<K>> in,
                      std::span<double, detail::extent_of_order<K>> out,
                      Scale scale = Scale::none) noexcept requires kernel_order<K> {
    return detail::walsh_hadamard_of_order<K>(in.data(), out.data(), scale, nullptr);
}

/**
 * Walsh-Hadamard transform of 2^K points, which takes no memory.
 * @tparam K    an order with a kernel, 1 to 13, else a compile-time error
 * @param in    2^K elements
 * @param out   2^K elements; may be in
 * @param work  of order K or a higher one, apart from in and out
 * @param scale see Scale
 * @return #qsvStatusOk, or #qsvStatusBadFlag where scale is none of Scale
 */
template <int K, int Order>
Status walsh_hadamard(std::span<const float, detail::extent_of_order<K>> in,
                      std::span<float, detail::extent_of_order<K>> out,
                      WalshHadamardWork<float, Order>& work,
                      Scale scale = Scale::none) noexcept requires kernel_order<K> &&(K <= Order) {
    return detail::walsh_hadamard_of_order<K>(in.data(), out.data(), scale, work.data());
}

/** The same in double precision. */
template <int K, int Order>
Status walsh_hadamard(std::span<const double, detail::extent_of_order<K>> in,
                      std::span<double, detail::extent_of_order<K>> out,
                      WalshHadamardWork<double, Order>& work,
                      Scale scale = Scale::none) noexcept requires kernel_order<K> &&(K <= Order) {
    return detail::walsh_hadamard_of_order<K>(in.data(), out.data(), scale, work.data());
}

/** Walsh-Hadamard transform of 2^K points, of arrays one of which at least tells its size at run
 * time alone: #qsvStatusBadLength where that is not 2^K. */
template <int K, class In, class Out>
[[nodiscard]] Status walsh_hadamard(In&& in, Out&& out,
                                    Scale scale = Scale::none) noexcept requires kernel_order<K> &&
    detail::sized_at_run_time<In, detail::extent_of_order<K>, Out, detail::extent_of_order<K>> {
    return detail::with_extents<detail::extent_of_order<K>, detail::extent_of_order<K>>(
        std::forward<In>(in), std::forward<Out>(out),
        [=](auto x, auto y) { return walsh_hadamard<K>(x, y, scale); });
}

/**
 * Walsh-Hadamard transform of a length given at run time, which is the size of both arrays. Takes
 * memory from length 256 on, as that of a given order does.
 * @param in    2, 4, 8, .. or 8192 elements, else #qsvStatusBadLength
 * @param out   as many elements, else #qsvStatusBadLength; may be in
 * @param scale see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status walsh_hadamard(std::span<const float> in, std::span<float> out,
                                           Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgWHT_32f(in.data(), out.data(), detail::order_of_call(in.size()),
                       detail::flag_of(scale), nullptr);
}

/** The same in double precision. */
[[nodiscard]] inline Status walsh_hadamard(std::span<const double> in, std::span<double> out,
                                           Scale scale = Scale::none) noexcept {
    if (in.size() != out.size()) return qsvStatusBadLength;
    return qsvgWHT_64f(in.data(), out.data(), detail::order_of_call(in.size()),
                       detail::flag_of(scale), nullptr);
}

/**
 * Walsh-Hadamard transform of a length given at run time, which takes no memory.
 * @param in    2, 4, 8, .. or 8192 elements, else #qsvStatusBadLength
 * @param out   as many elements, else #qsvStatusBadLength; may be in
 * @param work  of their order or a higher one, else #qsvStatusBadLength; apart from in and out
 * @param scale see Scale
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <detail::work_of<float> Work>
[[nodiscard]] Status walsh_hadamard(std::span<const float> in, std::span<float> out, Work& work,
                                    Scale scale = Scale::none) noexcept {
    if (in.size() != out.size() || in.size() > length_of_order(Work::order()))
        return qsvStatusBadLength;
    return qsvgWHT_32f(in.data(), out.data(), detail::order_of_call(in.size()),
                       detail::flag_of(scale), work.data());
}

/** The same in double precision. */
template <detail::work_of<double> Work>
[[nodiscard]] Status walsh_hadamard(std::span<const double> in, std::span<double> out, Work& work,
                                    Scale scale = Scale::none) noexcept {
    if (in.size() != out.size() || in.size() > length_of_order(Work::order()))
        return qsvStatusBadLength;
    return qsvgWHT_64f(in.data(), out.data(), detail::order_of_call(in.size()),
                       detail::flag_of(scale), work.data());
}

/**
 * Walsh-Hadamard transforms, one each for the transforms of two views, in one call (see @ref
 * batches). From length 256 on it takes one block of memory for the call.
 * @param in    of length 2, 4, 8, .. or 8192, else #qsvStatusBadLength
 * @param out   as many transforms of that length, else #qsvStatusBadLength; may be in
 * @param scale see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
[[nodiscard]] inline Status walsh_hadamard(batch<const float> in, batch<float> out,
                                           Scale scale = Scale::none) noexcept {
    return detail::walsh_hadamard_of_batch(in, out, scale, nullptr, detail::kHighestOrder);
}

/** The same in double precision. */
[[nodiscard]] inline Status walsh_hadamard(batch<const double> in, batch<double> out,
                                           Scale scale = Scale::none) noexcept {
    return detail::walsh_hadamard_of_batch(in, out, scale, nullptr, detail::kHighestOrder);
}

/**
 * Walsh-Hadamard transforms of two views, which take no memory.
 * @param in    of length 2, 4, 8, .. or 8192, else #qsvStatusBadLength
 * @param out   as many transforms of that length, else #qsvStatusBadLength; may be in
 * @param work  of their order or a higher one, else #qsvStatusBadLength; apart from in and out
 * @param scale see Scale, for all of them
 * @return #qsvStatusOk; of a refusal nothing was read or written
 */
template <detail::work_of<float> Work>
[[nodiscard]] Status walsh_hadamard(batch<const float> in, batch<float> out, Work& work,
                                    Scale scale = Scale::none) noexcept {
    return detail::walsh_hadamard_of_batch(in, out, scale, work.data(), Work::order());
}

/** The same in double precision. */
template <detail::work_of<double> Work>
[[nodiscard]] Status walsh_hadamard(batch<const double> in, batch<double> out, Work& work,
                                    Scale scale = Scale::none) noexcept {
    return detail::walsh_hadamard_of_batch(in, out, scale, work.data(), Work::order());
}

/** @} */

}  // namespace qsvgen
