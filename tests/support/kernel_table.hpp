#pragma once

/**
 * @file
 * @brief Every exported transform as a row of a table, one table an element type.
 */

#include <array>

#include "support/kernel.hpp"

namespace qsvgen_test {

template <class E>
using KernelTable = std::array<Kernel<E>, E::kFamilies * kLengthCount>;
template <class E>
using DispatcherTable = std::array<Dispatcher<E>, E::kFamilies>;

/** The families of each length in turn, shortest first. */
template <class E>
const KernelTable<E>& kernels();

/** The families in the order of `kernels`. */
template <class E>
const DispatcherTable<E>& dispatchers();

#define QSVG_TEST_KERNEL(DIRECTION, LAYOUT, FAMILY, N, SUFFIX)                   \
    {N, Direction::DIRECTION, Layout::LAYOUT, "qsvg" #FAMILY "_" #N "_" #SUFFIX, \
     qsvg##FAMILY##_##N##_##SUFFIX},
#define QSVG_TEST_DISPATCHER(DIRECTION, LAYOUT, FAMILY, SUFFIX) \
    {Direction::DIRECTION, Layout::LAYOUT, "qsvg" #FAMILY "_" #SUFFIX, qsvg##FAMILY##_##SUFFIX},

#define QSVG_TEST_COMPLEX_FAMILIES(ROW, ...)        \
    ROW(Forward, Natural, DFTFwd_CToC, __VA_ARGS__) \
    ROW(Inverse, Natural, DFTInv_CToC, __VA_ARGS__)
#define QSVG_TEST_REAL_FAMILIES(ROW, ...)           \
    ROW(Forward, Ccs, DFTFwd_RToCCS, __VA_ARGS__)   \
    ROW(Forward, Pack, DFTFwd_RToPack, __VA_ARGS__) \
    ROW(Forward, Perm, DFTFwd_RToPerm, __VA_ARGS__) \
    ROW(Inverse, Ccs, DFTInv_CCSToR, __VA_ARGS__)   \
    ROW(Inverse, Pack, DFTInv_PackToR, __VA_ARGS__) \
    ROW(Inverse, Perm, DFTInv_PermToR, __VA_ARGS__) \
    ROW(Both, Natural, Hartley, __VA_ARGS__)

#define QSVG_TEST_32FC(N) QSVG_TEST_COMPLEX_FAMILIES(QSVG_TEST_KERNEL, N, 32fc)
#define QSVG_TEST_64FC(N) QSVG_TEST_COMPLEX_FAMILIES(QSVG_TEST_KERNEL, N, 64fc)
#define QSVG_TEST_32F(N) QSVG_TEST_REAL_FAMILIES(QSVG_TEST_KERNEL, N, 32f)
#define QSVG_TEST_64F(N) QSVG_TEST_REAL_FAMILIES(QSVG_TEST_KERNEL, N, 64f)

#define QSVG_TEST_TABLES(E, ROWS, FAMILIES, SUFFIX)                                             \
    template <>                                                                                 \
    inline const KernelTable<E>& kernels<E>() {                                                 \
        static constexpr KernelTable<E> table = {{QSVG_FOR_EACH_LENGTH(ROWS)}};                 \
        return table;                                                                           \
    }                                                                                           \
    template <>                                                                                 \
    inline const DispatcherTable<E>& dispatchers<E>() {                                         \
        static constexpr DispatcherTable<E> table = {{FAMILIES(QSVG_TEST_DISPATCHER, SUFFIX)}}; \
        return table;                                                                           \
    }

QSVG_TEST_TABLES(Single, QSVG_TEST_32FC, QSVG_TEST_COMPLEX_FAMILIES, 32fc)
QSVG_TEST_TABLES(Double, QSVG_TEST_64FC, QSVG_TEST_COMPLEX_FAMILIES, 64fc)
QSVG_TEST_TABLES(RealSingle, QSVG_TEST_32F, QSVG_TEST_REAL_FAMILIES, 32f)
QSVG_TEST_TABLES(RealDouble, QSVG_TEST_64F, QSVG_TEST_REAL_FAMILIES, 64f)

#undef QSVG_TEST_TABLES
#undef QSVG_TEST_64F
#undef QSVG_TEST_32F
#undef QSVG_TEST_64FC
#undef QSVG_TEST_32FC
#undef QSVG_TEST_REAL_FAMILIES
#undef QSVG_TEST_COMPLEX_FAMILIES
#undef QSVG_TEST_DISPATCHER
#undef QSVG_TEST_KERNEL

template <class E>
std::size_t family_row(Direction direction, Layout layout) {
    std::size_t row = 0;
    for (const auto& dispatcher : dispatchers<E>()) {
        if (dispatcher.direction == direction && dispatcher.layout == layout) break;
        ++row;
    }
    return row;
}

template <class E>
const Kernel<E>& kernel_of(int length, Direction direction, Layout layout = Layout::Natural) {
    const std::size_t rows_before = E::kFamilies * place_in_header(length);
    return kernels<E>().at(rows_before + family_row<E>(direction, layout));
}

/** The transform of a run-time length that leads to `kernel`. */
template <class E>
const Dispatcher<E>& dispatcher_of(const Kernel<E>& kernel) {
    return dispatchers<E>().at(family_row<E>(kernel.direction, kernel.layout));
}

}  // namespace qsvgen_test
