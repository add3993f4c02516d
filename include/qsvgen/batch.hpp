#pragma once

/**
 * @file
 * @brief Views of many transforms in memory: where each element of a batch stands.
 */

#include <concepts>
#include <cstddef>
#include <iterator>
#include <qsvgen/call.hpp>
#include <span>
#include <type_traits>
#include <utility>

// NOLINTBEGIN(readability-identifier-naming): parameters are named for the members that they set.

namespace qsvgen {

namespace detail {

template <std::integral... Sizes>
constexpr bool are_offsets(Sizes... sizes) {
    return (std::in_range<std::ptrdiff_t>(sizes) && ...);
}

template <class Array>
using element_of = typename span_of<Array>::element_type;

template <class Nested>
using element_of_nested = element_of<element_of<Nested>&>;

template <class Nested>
inline constexpr std::size_t extent_of_inner = extent_of<std::remove_cv_t<element_of<Nested>>>;

/** Inner arrays of one size, which stand without gaps. */
template <class Nested>
concept nested_array = requires {
    typename element_of_nested<Nested>;
    requires extent_of_inner<Nested>
    != std::dynamic_extent;
};

}  // namespace detail

/**
 * @addtogroup cpp
 * @{
 */

/**
 * Where the elements of many transforms stand: element j of transform k is
 * base[j * stride + k * distance]. Owns nothing. Numbers are of elements; stride and distance may
 * be negative or 0 (see @ref batches, which also tells what may overlap).
 * @tparam T element: float, double or a std::complex of these; const of what is only read
 */
template <class T>
struct batch {
    T* base = nullptr;            ///< element 0 of transform 0
    std::ptrdiff_t length = 0;    ///< elements of each transform on this side
    std::ptrdiff_t stride = 1;    ///< from an element of a transform to its next
    std::ptrdiff_t distance = 0;  ///< from a transform to the next
    std::ptrdiff_t count = 0;     ///< how many transforms

    constexpr batch() = default;

    /** From integers of any type. Of numbers that are no std::ptrdiff_t it makes a batch that every
     * call refuses with #qsvStatusBadLength. */
    constexpr batch(T* base_, std::integral auto length_, std::integral auto stride_,
                    std::integral auto distance_, std::integral auto count_) noexcept
        : base(base_),
          length(static_cast<std::ptrdiff_t>(length_)),
          stride(static_cast<std::ptrdiff_t>(stride_)),
          distance(static_cast<std::ptrdiff_t>(distance_)),
          count(static_cast<std::ptrdiff_t>(count_)) {
        if (!detail::are_offsets(length_, stride_, distance_, count_)) length = count = -1;
    }

    /** The same elements, to be read alone. */
    constexpr operator batch<const T>() const noexcept requires(!std::is_const_v<T>) {
        return {base, length, stride, distance, count};
    }
};

/**
 * A row-major array of two dimensions. Owns nothing.
 * @tparam T element, as of batch
 */
template <class T>
struct matrix {
    T* base = nullptr;                ///< element 0 of row 0
    std::ptrdiff_t rows = 0;          ///< how many
    std::ptrdiff_t columns = 0;       ///< how many, which is the elements of a row
    std::ptrdiff_t row_distance = 0;  ///< from a row to the next

    constexpr matrix() = default;

    /**
     * Elements in a vector, a span or another contiguous array. Where rows of that place and size
     * are not in there, all its batches are refused with #qsvStatusBadLength.
     * @param elements      element 0 of row 0 and all others
     * @param rows_         how many
     * @param columns_      how many
     * @param row_distance_ from a row to the next, columns_ or more
     */
    constexpr matrix(std::span<T> elements, std::integral auto rows_, std::integral auto columns_,
                     std::integral auto row_distance_) noexcept
        : base(elements.data()),
          rows(static_cast<std::ptrdiff_t>(rows_)),
          columns(static_cast<std::ptrdiff_t>(columns_)),
          row_distance(static_cast<std::ptrdiff_t>(row_distance_)) {
        const bool is_shape = detail::are_offsets(rows_, columns_, row_distance_) && rows >= 0 &&
                              columns >= 0 && row_distance >= columns;
        const bool is_empty = rows == 0 || columns == 0;
        const auto room = std::ssize(elements) - columns;
        if (!is_shape || !(is_empty || (room >= 0 && rows - 1 <= room / row_distance)))
            rows = columns = -1;
    }

    /** The same, one row behind the other. */
    constexpr matrix(std::span<T> elements, std::integral auto rows_,
                     std::integral auto columns_) noexcept
        : matrix(elements, rows_, columns_, columns_) {}

    /** An array of arrays: T[3][4], or a std::array or vector of std::array. */
    template <detail::nested_array Nested>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): no matrix is a nested array.
    constexpr explicit matrix(Nested&& array) noexcept
        : rows(std::ssize(array)),
          columns(static_cast<std::ptrdiff_t>(detail::extent_of_inner<Nested>)),
          row_distance(columns) {
        if (rows > 0) base = std::data(*std::data(array));
    }
};

template <class Array, std::integral Rows, std::integral Columns, std::integral... RowDistance>
matrix(Array&&, Rows, Columns, RowDistance...) -> matrix<detail::element_of<Array>>;

template <detail::nested_array Nested>
matrix(Nested&&) -> matrix<detail::element_of_nested<Nested>>;

/**
 * The columns of a matrix, a transform each.
 * @param array a matrix, or what one is made of: elements, rows and columns, or an array of arrays
 */
template <class... Array>
constexpr auto columns(Array&&... array) noexcept {
    const matrix view(std::forward<Array>(array)...);
    return batch(view.base, view.rows, view.row_distance, 1, view.columns);
}

/**
 * The rows of a matrix, a transform each.
 * @param array as of columns
 */
template <class... Array>
constexpr auto rows(Array&&... array) noexcept {
    const matrix view(std::forward<Array>(array)...);
    return batch(view.base, view.columns, 1, view.row_distance, view.rows);
}

/**
 * Frames of a signal, one a hop behind the other, as many as it has whole ones; a shorter signal
 * has none. They share elements where the hop is less than the length, so that such are only for
 * reading. Where length or hop is not positive, the batch is refused with #qsvStatusBadLength.
 * @param signal a vector, a std::array, a span or another contiguous array
 * @param length elements of a frame
 * @param hop    elements from the first of a frame to the first of the next
 */
template <class Signal>
constexpr auto frames(Signal&& signal, std::integral auto length, std::integral auto hop) noexcept {
    const std::span samples(std::forward<Signal>(signal));
    batch view(samples.data(), length, 1, hop, 0);
    if (view.length <= 0 || view.distance <= 0) {
        view.length = -1;
    } else if (view.length <= std::ssize(samples)) {
        view.count = (std::ssize(samples) - view.length) / view.distance + 1;
    }
    return view;
}

/** @} */

namespace detail {

/** Of no transforms nothing is read or written, so that vectors without elements need no address.
 */
template <class T>
T* base_of(const batch<T>& view) {
    return view.count == 0 && view.base == nullptr ? reinterpret_cast<T*>(alignof(T)) : view.base;
}

/** What both sides of most calls have to agree in. */
template <class In, class Out>
constexpr bool is_alike(const batch<In>& in, const batch<Out>& out) {
    return in.length == out.length && in.count == out.count;
}

}  // namespace detail
}  // namespace qsvgen

// NOLINTEND(readability-identifier-naming)
