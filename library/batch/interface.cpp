/** @file @brief The exported functions of the DFTs and the Hartley transform. */

#include "batch/request.hpp"

namespace batch {
namespace {

constexpr std::int32_t kShortest = 2;
constexpr std::int32_t kLongest = 64;

/** Bodies and single calls of one exported function. */
template <class Element>
struct Transform {
    using Real = NumberOf<Element>;

    void (*body)(int size, const Groups<Real>& groups);
    Scales<Real> (*scales)(int size);
    QsvStatus (*single)(const Element* src, Element* dst, std::int32_t length, std::int32_t flag);
    Scaling scaling;
    Layout source_layout = Layout::Natural;
    Layout destination_layout = Layout::Natural;
};

template <class Element>
QsvStatus run_request(const Request<Element>& request, const Transform<Element>& transform) {
    const QsvStatus status = request.check(kShortest, kLongest);
    if (status != qsvStatusOk || request.count == 0) return status;
    const auto scales = transform.scales(request.size);
    Batch<Element> batch = request.batch_of_places(request.size);
    batch.source_layout = transform.source_layout;
    batch.destination_layout = transform.destination_layout;
    batch.source.elements = elements_of(transform.source_layout, request.size);
    batch.destination.elements = elements_of(transform.destination_layout, request.size);
    batch.factor = factor_of(request.flag, transform.scaling, scales);
    batch.body_has_factor = scales.in_body;
    batch.body = transform.body;
    batch.single = transform.single;
    run(batch);
    return qsvStatusOk;
}

}  // namespace
}  // namespace batch

// NOLINTBEGIN(bugprone-macro-parentheses): names and types are pasted.
#define QSVG_BATCH(name, Element, body, scales, scaling, source, destination)             \
    QsvStatus qsvgBatch##name(const Element* src, ptrdiff_t srcStride, ptrdiff_t srcDist, \
                              Element* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,       \
                              int32_t length, int32_t count, int32_t flag) {              \
        return batch::run_request<Element>(                                               \
            {src, srcStride, srcDist, dst, dstStride, dstDist, length, count, flag},      \
            {batch::body, batch::scales, qsvg##name, batch::Scaling::scaling,             \
             batch::Layout::source, batch::Layout::destination});                         \
    }

#define QSVG_BATCHES_OF(real, complex, Real, Complex)                                        \
    QSVG_BATCH(DFTFwd_CToC_##complex, Complex, complex_forward_##real,                       \
               complex_forward_scales_##real, Forward, Natural, Natural)                     \
    QSVG_BATCH(DFTInv_CToC_##complex, Complex, complex_inverse_##real,                       \
               complex_inverse_scales_##real, Inverse, Natural, Natural)                     \
    QSVG_BATCH(DFTFwd_RToCCS_##real, Real, real_forward_##real, real_forward_scales_##real,  \
               Forward, Natural, CCS)                                                        \
    QSVG_BATCH(DFTFwd_RToPack_##real, Real, real_forward_##real, real_forward_scales_##real, \
               Forward, Natural, Natural)                                                    \
    QSVG_BATCH(DFTFwd_RToPerm_##real, Real, real_forward_##real, real_forward_scales_##real, \
               Forward, Natural, Perm)                                                       \
    QSVG_BATCH(DFTInv_CCSToR_##real, Real, real_inverse_##real, real_inverse_scales_##real,  \
               Inverse, CCS, Natural)                                                        \
    QSVG_BATCH(DFTInv_PackToR_##real, Real, real_inverse_##real, real_inverse_scales_##real, \
               Inverse, Natural, Natural)                                                    \
    QSVG_BATCH(DFTInv_PermToR_##real, Real, real_inverse_##real, real_inverse_scales_##real, \
               Inverse, Perm, Natural)                                                       \
    QSVG_BATCH(Hartley_##real, Real, hartley_##real, hartley_scales_##real, Both, Natural, Natural)
// NOLINTEND(bugprone-macro-parentheses)

extern "C" {
QSVG_BATCHES_OF(32f, 32fc, Real32, Complex32)
QSVG_BATCHES_OF(64f, 64fc, Real64, Complex64)
}
