/** @file @brief The exported functions of the DFTs and the Hartley transform. */

#include "batch/request.hpp"
#include "batch/single_kernels.hpp"

namespace batch {
namespace {

constexpr std::int32_t kShortest = 2;
constexpr std::int32_t kLongest = 64;

/** Bodies and single calls of one exported function. */
template <class Element>
struct Transform {
    using Real = NumberOf<Element>;

    using Body = void (*)(int size, const Groups<Real>& groups);
    using ScalesOfSize = Scales<Real> (*)(int size);
    using Single = QsvStatus (*)(const Element* src, Element* dst, std::int32_t length,
                                 std::int32_t flag);

    // Aggregates of constants GCC may copy from an image, whose addresses need writable data.
    Transform(Body the_body, ScalesOfSize the_scales, Single the_single, InPieces<Real> pieces,
              SingleKernels sizes, Scaling direction, Layout source, Layout destination)
        : body(the_body),
          scales(the_scales),
          single(the_single),
          in_pieces(pieces),
          singly(sizes),
          scaling(direction),
          source_layout(source),
          destination_layout(destination) {}

    Body body;
    ScalesOfSize scales;
    Single single;
    InPieces<Real> in_pieces;
    SingleKernels singly;
    Scaling scaling;
    Layout source_layout;
    Layout destination_layout;
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
    batch.in_pieces = transform.in_pieces;
    batch.singly_at_a_time = transform.singly.at_a_time(request.size);
    run(batch);
    return qsvStatusOk;
}

}  // namespace
}  // namespace batch

// NOLINTBEGIN(bugprone-macro-parentheses): names and types are pasted.
#define QSVG_BATCH(name, Element, family, type, scaling, source, destination, in_pieces)      \
    QsvStatus qsvgBatch##name(const Element* src, ptrdiff_t srcStride, ptrdiff_t srcDist,     \
                              Element* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,           \
                              int32_t length, int32_t count, int32_t flag) {                  \
        return batch::run_request<Element>(                                                   \
            {src, srcStride, srcDist, dst, dstStride, dstDist, length, count, flag},          \
            {batch::family##_##type, batch::family##_scales_##type, qsvg##name, in_pieces,    \
             batch::family##_##type##_singly, batch::Scaling::scaling, batch::Layout::source, \
             batch::Layout::destination});                                                    \
    }

#define QSVG_BATCHES_OF(type, complex, Real, Complex)                                            \
    QSVG_BATCH(DFTFwd_CToC_##complex, Complex, complex_forward, type, Forward, Natural, Natural, \
               batch::complex_forward_##type##_in_pieces)                                        \
    QSVG_BATCH(DFTInv_CToC_##complex, Complex, complex_inverse, type, Inverse, Natural, Natural, \
               batch::complex_inverse_##type##_in_pieces)                                        \
    QSVG_BATCH(DFTFwd_RToCCS_##type, Real, real_forward, type, Forward, Natural, CCS, {})        \
    QSVG_BATCH(DFTFwd_RToPack_##type, Real, real_forward, type, Forward, Natural, Natural, {})   \
    QSVG_BATCH(DFTFwd_RToPerm_##type, Real, real_forward, type, Forward, Natural, Perm, {})      \
    QSVG_BATCH(DFTInv_CCSToR_##type, Real, real_inverse, type, Inverse, CCS, Natural, {})        \
    QSVG_BATCH(DFTInv_PackToR_##type, Real, real_inverse, type, Inverse, Natural, Natural, {})   \
    QSVG_BATCH(DFTInv_PermToR_##type, Real, real_inverse, type, Inverse, Perm, Natural, {})      \
    QSVG_BATCH(Hartley_##type, Real, hartley, type, Both, Natural, Natural, {})
// NOLINTEND(bugprone-macro-parentheses)

extern "C" {
QSVG_BATCHES_OF(32f, 32fc, Real32, Complex32)
QSVG_BATCHES_OF(64f, 64fc, Real64, Complex64)
}
