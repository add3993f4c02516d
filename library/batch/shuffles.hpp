#pragma once

/**
 * @file
 * @brief Rearrangements of lanes that stay within pieces of 16 bytes, which any processor does at
 * one shuffle a vector.
 */

#include <cstdint>
#include <type_traits>

#include "batch/lanes.hpp"

namespace batch {

/** Of 16 bytes, the most that every target's vectors have in common. */
inline constexpr int kPieceBytes = 16;

namespace detail {

template <class Real>
inline constexpr int kPieceLanes = kPieceBytes / static_cast<int>(sizeof(Real));

/** Lane i of a shuffle whose pieces have lanes of a and b in turns, of their first or their second
 * halves. */
template <class Real>
constexpr int lane_of_turn(int i, bool of_second_half) {
    const int piece = i / kPieceLanes<Real>;
    const int in_piece = i % kPieceLanes<Real>;
    const int lane =
        piece * kPieceLanes<Real> + (of_second_half ? kPieceLanes<Real> / 2 : 0) + in_piece / 2;
    return in_piece % 2 == 0 ? lane : lane + kLanes<Real>;
}

/** Lane i of a shuffle whose pieces have every second lane of a's, and behind them of b's. */
template <class Real>
constexpr int every_second_lane(int i, bool odd) {
    const int piece = i / kPieceLanes<Real>;
    const int in_piece = i % kPieceLanes<Real>;
    constexpr int kHalf = kPieceLanes<Real> / 2;
    const int lane = piece * kPieceLanes<Real> + in_piece % kHalf * 2 + (odd ? 1 : 0);
    return in_piece < kHalf ? lane : lane + kLanes<Real>;
}

// Moved as integers, which the processor that was measured interleaves on two ports, numbers on
// one.
using Ints = std::int32_t __attribute__((vector_size(kBytes)));
using Longs = std::int64_t __attribute__((vector_size(kBytes)));
template <class Real>
using BitVector = std::conditional_t<sizeof(Real) == sizeof(std::int32_t), Ints, Longs>;

template <class Real, bool kSecondHalf, int... kLane>
[[gnu::always_inline]] inline Vector<Real> in_turns(Vector<Real> a, Vector<Real> b,
                                                    std::integer_sequence<int, kLane...>) {
    return reinterpret_cast<Vector<Real>>(__builtin_shufflevector(
        reinterpret_cast<BitVector<Real>>(a), reinterpret_cast<BitVector<Real>>(b),
        lane_of_turn<Real>(kLane, kSecondHalf)...));
}

template <class Real, bool kOdd, int... kLane>
[[gnu::always_inline]] inline Vector<Real> every_second(Vector<Real> a, Vector<Real> b,
                                                        std::integer_sequence<int, kLane...>) {
    return __builtin_shufflevector(a, b, every_second_lane<Real>(kLane, kOdd)...);
}

}  // namespace detail

template <class Real>
using EachLane = std::make_integer_sequence<int, kLanes<Real>>;

/** Lanes of a and b in turns: of the first halves of their pieces, or of the second ones. Undoes
 * separated(). */
template <class Real, bool kSecondHalf>
[[gnu::always_inline]] inline Vector<Real> interleaved(Vector<Real> a, Vector<Real> b) {
    return detail::in_turns<Real, kSecondHalf>(a, b, EachLane<Real>());
}

/** Of two vectors of complex numbers the real parts, or the imaginary ones (kOdd). Which number
 * comes to lie in which lane is of no matter to what then is done in each. */
template <class Real, bool kOdd>
[[gnu::always_inline]] inline Vector<Real> separated(Vector<Real> a, Vector<Real> b) {
    // Of two lanes in a piece that is to interleave them.
    if constexpr (sizeof(Real) == sizeof(double)) return interleaved<Real, kOdd>(a, b);
    return detail::every_second<Real, kOdd>(a, b, EachLane<Real>());
}

/**
 * Piece p of rows[i] holds elements 0, 1, .. of transform i; then element i of transforms 0, 1, ..
 * . As many rows as a piece holds elements. Its own inverse.
 */
template <class Real, int kRows>
[[gnu::always_inline]] inline void transpose_in_pieces(Vector<Real> (&rows)[kRows]) {
    static_assert(kRows == 1 || kRows == 2 || kRows == 4);
    if constexpr (kRows == 2) {
        // Elements of 8 bytes, be they numbers or pairs of them.
        const auto a = reinterpret_cast<Doubles>(rows[0]);
        const auto b = reinterpret_cast<Doubles>(rows[1]);
        rows[0] = reinterpret_cast<Vector<Real>>(interleaved<double, false>(a, b));
        rows[1] = reinterpret_cast<Vector<Real>>(interleaved<double, true>(a, b));
    } else if constexpr (kRows == 4) {
        Vector<Real> low[2];
        Vector<Real> high[2];
        for (int i = 0; i < 2; ++i) {
            low[i] = interleaved<Real, false>(rows[2 * i], rows[2 * i + 1]);
            high[i] = interleaved<Real, true>(rows[2 * i], rows[2 * i + 1]);
        }
        transpose_in_pieces<Real, 2>(low);
        transpose_in_pieces<Real, 2>(high);
        rows[0] = low[0];
        rows[1] = low[1];
        rows[2] = high[0];
        rows[3] = high[1];
    }
}

}  // namespace batch
