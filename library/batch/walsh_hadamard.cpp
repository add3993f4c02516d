/** @file @brief The exported functions of the Walsh-Hadamard transform. */

#include "batch/request.hpp"
#include "batch/single_kernels.hpp"
#include "core/passes.hpp"

namespace batch {
namespace {

constexpr std::int32_t kLowestOrder = 1;
constexpr std::int32_t kHighestOrder = 13;
/** Up to this order transforms run in lanes; those beyond fill vectors by themselves. */
constexpr std::int32_t kHighestInLanes = 6;
/** Up to this order a single transform takes no work buffer. */
constexpr std::int32_t kHighestWithoutBuffer = 7;

template <class Real>
struct Single;
template <>
struct Single<Real32> {
    static constexpr auto kTransform = qsvgWHT_32f;
    static constexpr auto kBufferSize = qsvgWHTGetBufferSize_32f;
    static constexpr auto kBody = walsh_hadamard_32f;
    static constexpr auto kScales = walsh_hadamard_scales_32f;
    static constexpr SingleKernels kSingly = walsh_hadamard_32f_singly;
};
template <>
struct Single<Real64> {
    static constexpr auto kTransform = qsvgWHT_64f;
    static constexpr auto kBufferSize = qsvgWHTGetBufferSize_64f;
    static constexpr auto kBody = walsh_hadamard_64f;
    static constexpr auto kScales = walsh_hadamard_scales_64f;
    static constexpr SingleKernels kSingly = walsh_hadamard_64f_singly;
};

/** Sums and differences of elements `stride` apart, for strides 1, 2, .., N/2: the sequence in
 * which all kernels round (Fino and Algazi, "Unified matrix treatment of the fast Walsh-Hadamard
 * transform", 1976). */
template <class Real>
void transform_in_place(Real* x, std::ptrdiff_t length) {
    for (std::ptrdiff_t stride = 1; stride < length; stride *= 2) {
        for (std::ptrdiff_t block = 0; block < length; block += 2 * stride) {
            Real* const a = x + block;
            Real* const b = a + stride;
            if (stride < kLanes<Real>) {
                for (std::ptrdiff_t i = 0; i < stride; ++i) {
                    const Real sum = a[i] + b[i];
                    b[i] = a[i] - b[i];
                    a[i] = sum;
                }
                continue;
            }
            for (std::ptrdiff_t i = 0; i < stride; i += kLanes<Real>) {
                const Vector<Real> sum = load(a + i) + load(b + i);
                store(b + i, load(a + i) - load(b + i));
                store(a + i, sum);
            }
        }
    }
}

/** One after the other. Elements that do not follow one another are brought together in the work
 * buffer, which holds as many. */
template <class Real>
void run_singly(const Request<Real>& r, std::uint8_t* buffer) {
    const std::ptrdiff_t length = std::ptrdiff_t{1} << r.size;
    std::int32_t bytes = 0;
    Single<Real>::kBufferSize(r.size, &bytes);
    Real short_transform[1 << kHighestWithoutBuffer];
    const core::WorkBuffer<Real> work(
        r.size <= kHighestWithoutBuffer ? reinterpret_cast<std::uint8_t*>(short_transform) : buffer,
        bytes);
    Real* const x = work.begin();
    const bool is_contiguous = r.source_stride == 1 && r.destination_stride == 1;
    const Real factor = factor_of(r.flag, Scaling::Both, Single<Real>::kScales(r.size));
    const Real* from = r.source;
    Real* to = r.destination;
    for (std::int32_t k = 0; k < r.count; ++k) {
        if (k > 0) {
            from += r.source_distance;
            to += r.destination_distance;
        }
        if (is_contiguous) {
            Single<Real>::kTransform(from, to, r.size, r.flag, reinterpret_cast<std::uint8_t*>(x));
            continue;
        }
        for (std::ptrdiff_t j = 0; j < length; ++j) x[j] = from[j * r.source_stride];
        transform_in_place(x, length);
        for (std::ptrdiff_t j = 0; j < length; ++j) to[j * r.destination_stride] = x[j] * factor;
    }
}

template <class Real>
QsvStatus run_request(const Request<Real>& request, std::uint8_t* buffer) {
    const QsvStatus status = request.check(kLowestOrder, kHighestOrder);
    if (status != qsvStatusOk || request.count == 0) return status;
    if (request.size > kHighestInLanes) {
        run_singly(request, buffer);
        return qsvStatusOk;
    }
    Batch<Real> batch = request.batch_of_places(1 << request.size);
    const auto scales = Single<Real>::kScales(request.size);
    batch.factor = factor_of(request.flag, Scaling::Both, scales);
    batch.body_has_factor = scales.in_body;
    batch.body = Single<Real>::kBody;
    batch.singly_at_a_time = Single<Real>::kSingly.at_a_time(request.size);
    // Of these orders none needs a work buffer.
    batch.single = [](const Real* src, Real* dst, std::int32_t order, std::int32_t flag) {
        return Single<Real>::kTransform(src, dst, order, flag, nullptr);
    };
    run(batch);
    return qsvStatusOk;
}

}  // namespace
}  // namespace batch

extern "C" {

QsvStatus qsvgBatchWHT_32f(const Real32* src, ptrdiff_t srcStride, ptrdiff_t srcDist, Real32* dst,
                           ptrdiff_t dstStride, ptrdiff_t dstDist, int32_t order, int32_t count,
                           int32_t flag, uint8_t* buffer) {
    return batch::run_request<Real32>(
        {src, srcStride, srcDist, dst, dstStride, dstDist, order, count, flag}, buffer);
}

QsvStatus qsvgBatchWHT_64f(const Real64* src, ptrdiff_t srcStride, ptrdiff_t srcDist, Real64* dst,
                           ptrdiff_t dstStride, ptrdiff_t dstDist, int32_t order, int32_t count,
                           int32_t flag, uint8_t* buffer) {
    return batch::run_request<Real64>(
        {src, srcStride, srcDist, dst, dstStride, dstDist, order, count, flag}, buffer);
}
}
