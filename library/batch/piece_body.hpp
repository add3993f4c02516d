#pragma once

/**
 * @file
 * @brief What bodies are to the loop around them that are single kernels in longer vectors: a
 * transform in each piece of 16 bytes.
 *
 * Nothing of a transform is transposed: its elements follow one another in the piece as they do in
 * memory.
 */

#include <cstddef>
#include <cstdint>
#include <utility>

#include "batch/pieces.hpp"
#include "batch/rows.hpp"

namespace batch {

namespace detail {

/** Two numbers of binary32, of whatever type the memory is. */
typedef double TwoFloats __attribute__((aligned(4), may_alias));

[[gnu::always_inline]] inline const TwoFloats* two_floats(const float* p) {
    return reinterpret_cast<const TwoFloats*>(p);
}

[[gnu::always_inline]] inline __m128d low_half(const float* p) {
    return _mm_set_sd(*two_floats(p));
}

}  // namespace detail

/** The first transform's numbers begin at `begin`. Half vectors are two of binary32. */
template <class Real>
struct RowSource {
    const Real* begin;
    std::ptrdiff_t step;

    [[gnu::always_inline]] Vector<Real> load(int offset) const {
        return load_pieces(begin + offset, step);
    }
    /** Zeros in the high halves. */
    [[gnu::always_inline]] Vector<Real> load_low(int offset) const {
        const Real* const p = begin + offset;
        return joined<Real>(
            [=, this](int i) { return _mm_castpd_ps(detail::low_half(p + i * step)); });
    }
    /** Broadcasts and blends, which any port does, spare the port of shuffles. */
    [[gnu::always_inline]] Vector<Real> load_halves(int low, int high) const {
        const Real* const p = begin + low;
        const Real* const q = begin + high;
#if QSVG_VECTOR_BYTES == 16
        return reinterpret_cast<Vector<Real>>(
            __m128d{*detail::two_floats(p), *detail::two_floats(q)});
#elif QSVG_VECTOR_BYTES == 32
        const auto all = [](const Real* from) { return _mm256_set1_pd(*detail::two_floats(from)); };
        const __m256d first = _mm256_blend_pd(all(p), all(q), 2);
        const __m256d second = _mm256_blend_pd(all(p + step), all(q + step), 8);
        return reinterpret_cast<Vector<Real>>(_mm256_blend_pd(first, second, 12));
#else
        __m512d v = _mm512_broadcastsd_pd(detail::low_half(p));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 1, detail::low_half(q));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 2, detail::low_half(p + step));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 3, detail::low_half(q + step));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 4, detail::low_half(p + 2 * step));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 5, detail::low_half(q + 2 * step));
        v = _mm512_mask_broadcastsd_pd(v, 1 << 6, detail::low_half(p + 3 * step));
        return reinterpret_cast<Vector<Real>>(
            _mm512_mask_broadcastsd_pd(v, 1 << 7, detail::low_half(q + 3 * step)));
#endif
    }
    /** Zeros in all lanes of a piece but the first. */
    [[gnu::always_inline]] Vector<Real> load_scalar(int offset) const {
        const Real* const p = begin + offset;
        return joined<Real>([=, this](int i) { return _mm_load_ss(p + i * step); });
    }
};

template <class Real>
struct RowDestination {
    Real* begin;
    std::ptrdiff_t step;

    [[gnu::always_inline]] void store(int offset, Vector<Real> v) const {
        store_pieces(begin + offset, step, v);
    }
    [[gnu::always_inline]] void store_low(int offset, Vector<Real> v) const {
        Real* const p = begin + offset;
        for_each_piece<Real>(v, [=, this](int i, __m128 x) {
            _mm_storel_pi(reinterpret_cast<__m64*>(p + i * step), x);
        });
    }
    [[gnu::always_inline]] void store_high(int offset, Vector<Real> v) const {
        Real* const p = begin + offset;
        for_each_piece<Real>(v, [=, this](int i, __m128 x) {
            _mm_storeh_pi(reinterpret_cast<__m64*>(p + i * step), x);
        });
    }
};

/** Elements of a piece each, those of neighbouring transforms side by side. */
template <class Real>
struct ColumnSource {
    const Real* begin;
    const std::ptrdiff_t* offsets;

    [[gnu::always_inline]] Vector<Real> load(int offset) const {
        return batch::load(begin + offsets[offset / (kLanes<Real> / kPieces)]);
    }
};

template <class Real>
struct ColumnDestination {
    Real* begin;
    const std::ptrdiff_t* offsets;

    [[gnu::always_inline]] void store(int offset, Vector<Real> v) const {
        batch::store(begin + offsets[offset / (kLanes<Real> / kPieces)], v);
    }
};

/** The 16 bytes at p, on such a boundary. */
template <class Real>
[[gnu::always_inline]] inline Vector<Real> in_each_piece(const Real* p) {
    const auto* const piece = reinterpret_cast<const __m128*>(p);
#if QSVG_VECTOR_BYTES == 16
    return reinterpret_cast<Vector<Real>>(*piece);
#elif QSVG_VECTOR_BYTES == 32
    // By its address: of a value GCC would join two loads.
    return reinterpret_cast<Vector<Real>>(_mm256_broadcast_ps(piece));
#else
    return reinterpret_cast<Vector<Real>>(_mm512_broadcast_f32x4(*piece));
#endif
}

namespace detail {

/** Lane i of a vector in each of whose pieces are these lanes of a's piece and of b's behind it. */
template <int... kLane>
constexpr int lane_of_pieces(int i) {
    constexpr int kCount = sizeof...(kLane);
    constexpr int kLanesOfPiece[] = {kLane...};
    constexpr int kLanesOfVector = kBytes / kPieceBytes * kCount;
    const int lane = kLanesOfPiece[i % kCount];
    const int in_a = i / kCount * kCount + lane % kCount;
    return lane < kCount ? in_a : in_a + kLanesOfVector;
}

template <int... kLane, class V, int... kIndex>
[[gnu::always_inline]] inline V shuffled(V a, V b, std::integer_sequence<int, kIndex...>) {
    return __builtin_shufflevector(a, b, lane_of_pieces<kLane...>(kIndex)...);
}

using SignBits = std::int64_t __attribute__((vector_size(kBytes)));

}  // namespace detail

/** In each piece the lanes of a's and, behind them, of b's that are named. */
template <int... kLane, class V>
[[gnu::always_inline]] inline V shuffled(V a, V b) {
    constexpr int kLanesOfVector = kPieces * static_cast<int>(sizeof...(kLane));
    return detail::shuffled<kLane...>(a, b, std::make_integer_sequence<int, kLanesOfVector>());
}

/** `v` with the signs changed where `mask`, a vector of zeros, has one. */
template <class V>
[[gnu::always_inline]] inline V flipped(V v, V mask) {
    using detail::SignBits;
    return reinterpret_cast<V>(reinterpret_cast<SignBits>(v) ^ reinterpret_cast<SignBits>(mask));
}

namespace detail {

/** Body::run(x, y, factor) `count` times; from one to the next, sides move by their steps. */
template <class Body, class Source, class Destination, class Real>
[[gnu::always_inline]] inline void run_steps(Source x, std::ptrdiff_t source_step, Destination y,
                                             std::ptrdiff_t destination_step, Real factor,
                                             std::ptrdiff_t count) {
    const Vector<Real> factors = Vector<Real>{} + factor;
    for (std::ptrdiff_t left = count; left > 0; --left) {
        Body::run(x, y, factors);
        x.begin += source_step;
        y.begin += destination_step;
    }
}

}  // namespace detail

template <class Body, class Real>
[[gnu::always_inline]] inline void run_in_pieces(const Rows<Real>& rows) {
    const RowSource<Real> x{rows.source, rows.source_step};
    const RowDestination<Real> y{rows.destination, rows.destination_step};
    detail::run_steps<Body>(x, kPieces * x.step, y, kPieces * y.step, rows.factor, rows.count);
}

template <class Body, class Real>
[[gnu::always_inline]] inline void run_in_pieces(const Columns<Real>& columns) {
    const ColumnSource<Real> x{columns.source, columns.from};
    const ColumnDestination<Real> y{columns.destination, columns.to};
    detail::run_steps<Body>(x, kLanes<Real>, y, kLanes<Real>, columns.factor, columns.count);
}

}  // namespace batch
