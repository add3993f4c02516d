#include "families.hpp"

#include <bit>
#include <cmath>

#include "dct4_plans.hpp"
#include "qsvgen_batch.h"

namespace python {
namespace {

/** @name The functions of the C interface, made alike
 * @{ */

template <class Element>
using BatchOf = QsvStatus (*)(const Element*, ptrdiff_t, ptrdiff_t, Element*, ptrdiff_t, ptrdiff_t,
                              int32_t, int32_t, int32_t);
template <class Element>
using SingleOf = QsvStatus (*)(const Element*, Element*, int32_t, int32_t);

template <class Element, BatchOf<Element> function>
QsvStatus batch(const void* src, ptrdiff_t srcStride, ptrdiff_t srcDist, void* dst,
                ptrdiff_t dstStride, ptrdiff_t dstDist, int32_t length, int32_t count, int32_t flag,
                const WorkSpace&) {
    return function(static_cast<const Element*>(src), srcStride, srcDist,
                    static_cast<Element*>(dst), dstStride, dstDist, length, count, flag);
}

template <class Element, SingleOf<Element> function>
QsvStatus single(const void* src, void* dst, int32_t length, int32_t flag) {
    return function(static_cast<const Element*>(src), static_cast<Element*>(dst), length, flag);
}

int32_t order_of(int32_t length) {
    return std::countr_zero(static_cast<uint32_t>(length));
}

template <class Real, auto function>
QsvStatus batch_by_order(const void* src, ptrdiff_t srcStride, ptrdiff_t srcDist, void* dst,
                         ptrdiff_t dstStride, ptrdiff_t dstDist, int32_t length, int32_t count,
                         int32_t flag, const WorkSpace& space) {
    return function(static_cast<const Real*>(src), srcStride, srcDist, static_cast<Real*>(dst),
                    dstStride, dstDist, order_of(length), count, flag, space.buffer);
}

template <class Real, auto function>
QsvStatus single_by_order(const void* src, void* dst, int32_t length, int32_t flag) {
    return function(static_cast<const Real*>(src), static_cast<Real*>(dst), order_of(length), flag,
                    nullptr);
}

template <Precision precision>
QsvStatus batch_by_plan(const void* src, ptrdiff_t, ptrdiff_t srcDist, void* dst, ptrdiff_t,
                        ptrdiff_t dstDist, int32_t length, int32_t count, int32_t,
                        const WorkSpace& space) {
    using Real = typename Dct4<precision>::Real;
    const auto scale = static_cast<Real>(space.scale);
    auto* const plan = static_cast<typename Dct4<precision>::Plan*>(space.plan);
    for (int32_t k = 0; k < count; ++k) {
        const Real* const from = static_cast<const Real*>(src) + k * srcDist;
        Real* const to = static_cast<Real*>(dst) + k * dstDist;
        if (const QsvStatus status = Dct4<precision>::run(from, to, plan); status != qsvStatusOk)
            return status;
        for (int32_t i = 0; i < length; ++i) to[i] *= scale;
    }
    return qsvStatusOk;
}

/** @} */

constexpr int32_t kLongestKernel = 64;
constexpr int32_t kLongestOrder = 1 << 13;

}  // namespace

const Family kFft = {
    "fft",
    "complex DFT",
    Elements::kComplex,
    Elements::kComplex,
    Lengths::kKernels,
    false,
    {batch<Complex32, qsvgBatchDFTFwd_CToC_32fc>, batch<Complex64, qsvgBatchDFTFwd_CToC_64fc>},
    {single<Complex32, qsvgDFTFwd_CToC_32fc>, single<Complex64, qsvgDFTFwd_CToC_64fc>}};
const Family kIfft = {
    "ifft",
    "complex DFT",
    Elements::kComplex,
    Elements::kComplex,
    Lengths::kKernels,
    true,
    {batch<Complex32, qsvgBatchDFTInv_CToC_32fc>, batch<Complex64, qsvgBatchDFTInv_CToC_64fc>},
    {single<Complex32, qsvgDFTInv_CToC_32fc>, single<Complex64, qsvgDFTInv_CToC_64fc>}};
const Family kRfft = {
    "rfft",
    "real DFT",
    Elements::kReal,
    Elements::kHalfSpectrum,
    Lengths::kKernels,
    false,
    {batch<Real32, qsvgBatchDFTFwd_RToCCS_32f>, batch<Real64, qsvgBatchDFTFwd_RToCCS_64f>},
    {single<Real32, qsvgDFTFwd_RToCCS_32f>, single<Real64, qsvgDFTFwd_RToCCS_64f>}};
const Family kIrfft = {
    "irfft",
    "real DFT",
    Elements::kHalfSpectrum,
    Elements::kReal,
    Lengths::kKernels,
    true,
    {batch<Real32, qsvgBatchDFTInv_CCSToR_32f>, batch<Real64, qsvgBatchDFTInv_CCSToR_64f>},
    {single<Real32, qsvgDFTInv_CCSToR_32f>, single<Real64, qsvgDFTInv_CCSToR_64f>}};

#define QSVGEN_HARTLEY                                                            \
    {batch<Real32, qsvgBatchHartley_32f>, batch<Real64, qsvgBatchHartley_64f>}, { \
        single<Real32, qsvgHartley_32f>, single<Real64, qsvgHartley_64f>          \
    }
const Family kDht = {"dht",           "Hartley transform", Elements::kReal,
                     Elements::kReal, Lengths::kKernels,   false,
                     QSVGEN_HARTLEY};
const Family kIdht = {"idht",          "Hartley transform", Elements::kReal,
                      Elements::kReal, Lengths::kKernels,   true,
                      QSVGEN_HARTLEY};
#undef QSVGEN_HARTLEY

#define QSVGEN_WALSH_HADAMARD                                                               \
    {batch_by_order<Real32, qsvgBatchWHT_32f>, batch_by_order<Real64, qsvgBatchWHT_64f>}, { \
        single_by_order<Real32, qsvgWHT_32f>, single_by_order<Real64, qsvgWHT_64f>          \
    }
const Family kFwht = {
    "fwht", "Walsh-Hadamard transform", Elements::kReal, Elements::kReal, Lengths::kOrders,
    false,  QSVGEN_WALSH_HADAMARD};
const Family kIfwht = {
    "ifwht", "Walsh-Hadamard transform", Elements::kReal, Elements::kReal, Lengths::kOrders,
    true,    QSVGEN_WALSH_HADAMARD};
#undef QSVGEN_WALSH_HADAMARD

#define QSVGEN_DCT4                                                           \
    {batch_by_plan<Precision::kSingle>, batch_by_plan<Precision::kDouble>}, { \
        nullptr, nullptr                                                      \
    }
const Family kDct4 = {"dct4",          "DCT-IV", Elements::kReal, Elements::kReal,
                      Lengths::kPlans, false,    QSVGEN_DCT4};
const Family kIdct4 = {"idct4",         "DCT-IV", Elements::kReal, Elements::kReal,
                       Lengths::kPlans, true,     QSVGEN_DCT4};
#undef QSVGEN_DCT4

bool has_length(const Family& family, Precision precision, ptrdiff_t length) {
    if (length < 2) return false;
    if (family.lengths == Lengths::kKernels) return length <= kLongestKernel;
    if (!std::has_single_bit(static_cast<size_t>(length))) return false;
    return length <= (family.lengths == Lengths::kOrders ? kLongestOrder : longest_dct4(precision));
}

ptrdiff_t work_buffer_bytes(const Family& family, Precision precision, ptrdiff_t length) {
    if (family.lengths != Lengths::kOrders) return 0;
    int32_t bytes = 0;
    const int32_t order = order_of(static_cast<int32_t>(length));
    if (precision == Precision::kSingle)
        qsvgWHTGetBufferSize_32f(order, &bytes);
    else
        qsvgWHTGetBufferSize_64f(order, &bytes);
    return bytes;
}

double dct4_scale(const Family& family, Norm norm, ptrdiff_t length) {
    const auto points = static_cast<double>(length);
    if (norm == Norm::kOrtho) return std::sqrt(2 / points);
    return (norm == Norm::kBackward) == family.inverse ? 1 / points : 2;
}

}  // namespace python
