#pragma once

/**
 * @file
 * @brief Every exported Walsh-Hadamard transform as a row of a table, and the sequence of sums that
 * all of them promise to the bit.
 */

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "qsvgen.h"
#include "support/bits.hpp"
#include "support/elements.hpp"
#include "support/fault.hpp"
#include "support/placed_array.hpp"
#include "support/transform.hpp"

namespace qsvgen_test {

inline constexpr int kLowestOrder = 1;
inline constexpr int kHighestOrder = 13;
/** From this order on a kernel passes through a work buffer. */
inline constexpr int kFirstLongOrder = 8;

template <class E>
struct OrderKernel {
    using Element = typename E::Element;

    int order;
    const char* name;
    QsvStatus (*run)(const Element* src, Element* dst, std::int32_t flag, std::uint8_t* buffer);
    const void* address;  ///< of the exported function, which may take no buffer
    int buffer_bytes;

    std::size_t size() const { return std::size_t{1} << order; }
    bool has_buffer() const { return order >= kFirstLongOrder; }
};

template <class E>
using OrderTable = std::array<OrderKernel<E>, kHighestOrder>;

/** The kernels from order 1 to order 13. */
template <class E>
const OrderTable<E>& order_kernels();

template <class E>
QsvStatus wht(const typename E::Element* src, typename E::Element* dst, std::int32_t order,
              std::int32_t flag, std::uint8_t* buffer);
template <class E>
QsvStatus wht_buffer_size(std::int32_t order, std::int32_t* size);
/** Of the exported function itself. */
template <class E>
const void* dispatcher_address();

#define QSVG_TEST_SHORT_ORDER(K, SUFFIX)                                       \
    {                                                                          \
        K, "qsvgWHT_" #K "_" #SUFFIX,                                          \
            [](const auto* src, auto* dst, std::int32_t flag, std::uint8_t*) { \
                return qsvgWHT_##K##_##SUFFIX(src, dst, flag);                 \
            },                                                                 \
            reinterpret_cast<const void*>(&qsvgWHT_##K##_##SUFFIX), 0          \
    }
#define QSVG_TEST_LONG_ORDER(K, SUFFIX, BYTES)                            \
    {                                                                     \
        K, "qsvgWHT_" #K "_" #SUFFIX, &qsvgWHT_##K##_##SUFFIX,            \
            reinterpret_cast<const void*>(&qsvgWHT_##K##_##SUFFIX), BYTES \
    }
#define QSVG_TEST_ORDER_TABLE(E, SUFFIX, B8, B9, B10, B11, B12, B13)                    \
    template <>                                                                         \
    inline const OrderTable<E>& order_kernels<E>() {                                    \
        static const OrderTable<E> table = {{                                           \
            QSVG_TEST_SHORT_ORDER(1, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(2, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(3, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(4, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(5, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(6, SUFFIX),                                           \
            QSVG_TEST_SHORT_ORDER(7, SUFFIX),                                           \
            QSVG_TEST_LONG_ORDER(8, SUFFIX, B8),                                        \
            QSVG_TEST_LONG_ORDER(9, SUFFIX, B9),                                        \
            QSVG_TEST_LONG_ORDER(10, SUFFIX, B10),                                      \
            QSVG_TEST_LONG_ORDER(11, SUFFIX, B11),                                      \
            QSVG_TEST_LONG_ORDER(12, SUFFIX, B12),                                      \
            QSVG_TEST_LONG_ORDER(13, SUFFIX, B13),                                      \
        }};                                                                             \
        return table;                                                                   \
    }                                                                                   \
    template <>                                                                         \
    inline QsvStatus wht<E>(const E::Element* src, E::Element* dst, std::int32_t order, \
                            std::int32_t flag, std::uint8_t* buffer) {                  \
        return qsvgWHT_##SUFFIX(src, dst, order, flag, buffer);                         \
    }                                                                                   \
    template <>                                                                         \
    inline QsvStatus wht_buffer_size<E>(std::int32_t order, std::int32_t * size) {      \
        return qsvgWHTGetBufferSize_##SUFFIX(order, size);                              \
    }                                                                                   \
    template <>                                                                         \
    inline const void* dispatcher_address<E>() {                                        \
        return reinterpret_cast<const void*>(&qsvgWHT_##SUFFIX);                        \
    }
QSVG_TEST_ORDER_TABLE(RealSingle, 32f, 1024, 2048, 4096, 8192, 18432, 34816)
QSVG_TEST_ORDER_TABLE(RealDouble, 64f, 2048, 4096, 8192, 18432, 34816, 73728)
#undef QSVG_TEST_ORDER_TABLE
#undef QSVG_TEST_LONG_ORDER
#undef QSVG_TEST_SHORT_ORDER

/** "qsvgWHT_12_32f (flag 4)": how a failure says where it happened. */
template <class E>
std::string describe(const OrderKernel<E>& kernel, std::int32_t flag) {
    return std::string(kernel.name) + " (flag " + std::to_string(flag) + ")";
}

template <class E>
bool has_twin(const OrderKernel<E>& kernel) {
    return kernel.order >= 4;
}

/** 1/sqrt(2^order) as the interface promises it, which in binary64 is not the nearest one. */
template <class E>
typename E::Real root_scale(int order) {
    using Bits = typename E::Bits;
    if (order % 2 == 0) return std::ldexp(typename E::Real{1}, -order / 2);
    constexpr std::array<std::uint32_t, 7> kSingle = {
        0x3F3504F3, 0x3EB504F3, 0x3E3504F3, 0x3DB504F3, 0x3D3504F3, 0x3CB504F3, 0x3C3504F3};
    constexpr std::uint64_t kFirstDouble = 0x3FE6A09E667F3BCC;
    const auto steps = static_cast<std::size_t>(order / 2);
    if constexpr (sizeof(Bits) == 4)
        return std::bit_cast<typename E::Real>(kSingle.at(steps));
    else
        return std::bit_cast<typename E::Real>(kFirstDouble - (std::uint64_t{steps} << 52));
}

template <class E>
typename E::Real order_scale(int order, std::int32_t flag) {
    if (flag == qsvScaleFwdByN || flag == qsvScaleInvByN)
        return std::ldexp(typename E::Real{1}, -order);
    return flag == qsvScaleBySqrtN ? root_scale<E>(order) : typename E::Real{1};
}

/** The promised sequence: ascending strides, each sum rounded, one product at the end. */
template <class E>
std::vector<typename E::Real> reference_wht(std::vector<typename E::Real> x, std::int32_t flag) {
    int order = 0;
    for (std::size_t h = 1; h < x.size(); h *= 2, ++order) {
        for (std::size_t j = 0; j < x.size(); ++j) {
            if ((j & h) != 0) continue;
            const typename E::Real a = x[j];
            const typename E::Real b = x[j + h];
            x[j] = a + b;
            x[j + h] = a - b;
        }
    }
    for (auto& value : x) value *= order_scale<E>(order, flag);
    return x;
}

/** A work buffer of exactly the promised size, full of NaNs, with watched bytes around it. */
struct WorkBuffer {
    explicit WorkBuffer(int bytes) : bytes_(static_cast<std::size_t>(bytes), 0, std::byte{0xFF}) {}

    std::uint8_t* data() { return bytes_.data(); }
    bool margins_untouched() const { return bytes_.margins_untouched(); }

  private:
    PlacedArray<std::uint8_t> bytes_;
};

/** Runs the kernel and expects success; a memory fault is a failure that names the kernel. */
template <class E>
void run_expecting_success(const OrderKernel<E>& kernel, const typename E::Element* src,
                           typename E::Element* dst, std::int32_t flag, std::uint8_t* buffer) {
    static FaultCatcher catcher;
    volatile QsvStatus status = -1;
    EXPECT_FALSE(catcher.faults([&] { status = kernel.run(src, dst, flag, buffer); }))
        << describe(kernel, flag) << " faults";
    EXPECT_EQ(qsvStatusOk, status) << describe(kernel, flag);
}

/** Out of place with a buffer of its own. */
template <class E>
std::vector<typename E::Real> transform(const OrderKernel<E>& kernel,
                                        const std::vector<typename E::Real>& x, std::int32_t flag,
                                        Placement placement = kAligned) {
    PlacedArray<typename E::Real> source(x.size(), placement.source);
    PlacedArray<typename E::Real> destination(x.size(), placement.destination, std::byte{0xFF});
    WorkBuffer buffer(kernel.buffer_bytes);
    source.set(x);
    run_expecting_success(kernel, source.data(), destination.data(), flag, buffer.data());
    EXPECT_TRUE(destination.margins_untouched()) << describe(kernel, flag);
    EXPECT_TRUE(source.holds(x)) << describe(kernel, flag);
    EXPECT_TRUE(buffer.margins_untouched()) << describe(kernel, flag);
    return destination.get();
}

}  // namespace qsvgen_test
