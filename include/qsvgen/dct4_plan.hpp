#pragma once

/**
 * @file
 * @brief Plans of the DCT-IV of qsvgen.h in C++.
 */

#include <qsvgen.h>

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <qsvgen/call.hpp>
#include <span>
#include <type_traits>
#include <utility>

namespace qsvgen {

namespace detail {

template <class Real>
struct Dct4;
template <>
struct Dct4<float> {
    using Plan = QsvDCT4Plan_32f;
    static constexpr auto kInit = &qsvgDCT4InitAlloc_32f;
    static constexpr auto kRun = &qsvgDCT4_32f;
    static constexpr auto kFree = &qsvgDCT4Free_32f;
    static constexpr std::size_t kMaxLength = std::size_t{1} << 26;
};
template <>
struct Dct4<double> {
    using Plan = QsvDCT4Plan_64f;
    static constexpr auto kInit = &qsvgDCT4InitAlloc_64f;
    static constexpr auto kRun = &qsvgDCT4_64f;
    static constexpr auto kFree = &qsvgDCT4Free_64f;
    static constexpr std::size_t kMaxLength = std::size_t{1} << 25;
};

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * A plan of the DCT-IV (see @ref dct4), which owns its tables and its work space.
 *
 *     y[k] = sum over n of x[n] * cos(pi/N * (n + 1/2) * (k + 1/2))
 *
 * **Making** it takes all memory and evaluates all sines and cosines; running it does neither. It
 * throws nothing: a plan that could not be made is empty, which status() and the conversion to bool
 * tell, and running it gives that status.
 *
 * **Moving** takes no time that grows with the length and leaves an empty plan. Plans are not
 * copied: make another one of the same length.
 *
 * **Threads.** A plan of length 2, 4, 8, 16 or 32 is only read while it runs, by any number of
 * threads at once. Any other plan has work space in it and serves one call at a time, although
 * running is a const operation: two threads need a plan each. is_shareable() tells which is which.
 *
 * @tparam Real float or double, of signal, tables and all arithmetic
 */
template <class Real>
requires std::same_as<Real, float> || std::same_as<Real, double>
class Dct4Plan {
  public:
    /** The longest that there is a plan of: 2^26 for float, 2^25 for double. */
    static constexpr std::size_t kMaxLength = detail::Dct4<Real>::kMaxLength;

    /** Whether there is a plan of that length: a power of two from 2 to kMaxLength. */
    static constexpr bool is_length(std::integral auto length) noexcept {
        return std::cmp_greater_equal(length, 2) && std::cmp_less_equal(length, kMaxLength) &&
               std::has_single_bit(static_cast<std::size_t>(length));
    }

    /** An empty plan, whose status is #qsvStatusNullPointer. */
    Dct4Plan() noexcept = default;

    /**
     * Makes a plan; whether it could be made, status() tells: #qsvStatusBadLength of a length that
     * is none, #qsvStatusNullPointer where memory has run out.
     * @param length N, a power of two from 2 to kMaxLength
     */
    explicit Dct4Plan(std::integral auto length) noexcept : status_(qsvStatusBadLength) {
        if (!is_length(length)) return;
        status_ = detail::Dct4<Real>::kInit(&plan_, static_cast<std::int32_t>(length));
        if (status_ == qsvStatusOk) length_ = static_cast<std::size_t>(length);
    }

    ~Dct4Plan() { release(); }

    Dct4Plan(const Dct4Plan&) = delete;
    Dct4Plan& operator=(const Dct4Plan&) = delete;

    /** Leaves an empty plan behind. */
    Dct4Plan(Dct4Plan&& other) noexcept { swap(other); }
    /** Gives back what was, and leaves an empty plan behind. */
    Dct4Plan& operator=(Dct4Plan&& other) noexcept {
        Dct4Plan taken(std::move(other));
        swap(taken);
        return *this;
    }

    /** Each gets the other's plan. */
    void swap(Dct4Plan& other) noexcept {
        std::swap(plan_, other.plan_);
        std::swap(length_, other.length_);
        std::swap(status_, other.status_);
    }
    /** Each gets the other's plan. */
    friend void swap(Dct4Plan& one, Dct4Plan& other) noexcept { one.swap(other); }

    /** #qsvStatusOk, or why the plan is empty. */
    [[nodiscard]] Status status() const noexcept { return status_; }
    /** Whether there is a plan to run. */
    explicit operator bool() const noexcept { return plan_ != nullptr; }
    /** N; 0 of an empty plan. */
    [[nodiscard]] std::size_t length() const noexcept { return length_; }
    /** Whether any number of threads may run it at once; of an empty plan they may. */
    [[nodiscard]] bool is_shareable() const noexcept { return length_ <= 32; }

    /**
     * DCT-IV of N points.
     * @param in  N elements, else #qsvStatusBadLength
     * @param out N elements, else #qsvStatusBadLength; may be in, with the same bits
     * @return #qsvStatusOk, or of an empty plan its status; of a refusal nothing was read or
     * written
     */
    [[nodiscard]] Status operator()(std::span<const Real> in, std::span<Real> out) const noexcept {
        if (plan_ == nullptr) return status_;
        if (in.size() != length_ || out.size() != length_) return qsvStatusBadLength;
        return detail::Dct4<Real>::kRun(in.data(), out.data(), plan_);
    }

  private:
    void release() noexcept {
        if (plan_ != nullptr) static_cast<void>(detail::Dct4<Real>::kFree(plan_));
    }

    typename detail::Dct4<Real>::Plan* plan_ = nullptr;
    std::size_t length_ = 0;
    Status status_ = qsvStatusNullPointer;
};

/** @} */

}  // namespace qsvgen
