#include "batch/support/batch_kernels.hpp"

#include <type_traits>

namespace qsvgen_test {
namespace {

constexpr int kShortest = 2;
constexpr int kLongest = 64;
constexpr int kLowestOrder = 1;
constexpr int kHighestOrder = 13;

int ccs_elements(int length) {
    return length + (length % 2 == 0 ? 2 : 1);
}

template <class Element, class Real>
const Element* elements(const Real* numbers) {
    return reinterpret_cast<const Element*>(numbers);
}
template <class Element, class Real>
Element* elements(Real* numbers) {
    return reinterpret_cast<Element*>(numbers);
}

template <class Element, class Real, class Single, class Batch>
BatchKernel<Real> dft(const std::string& name, int length, int source, int destination,
                      Single single, Batch batch) {
    return {.name = name,
            .size = length,
            .parts = std::is_same_v<Element, Real> ? 1 : 2,
            .source_elements = source,
            .destination_elements = destination,
            .smallest = kShortest,
            .largest = kLongest,
            .single =
                [=](const Real* src, Real* dst, std::int32_t flag) {
                    return single(elements<Element>(src), elements<Element>(dst), length, flag);
                },
            .batch =
                [=](const BatchCall<Real>& c) {
                    return batch(elements<Element>(c.source), c.source_stride, c.source_distance,
                                 elements<Element>(c.destination), c.destination_stride,
                                 c.destination_distance, c.size, c.count, c.flag);
                }};
}

template <class Real, class Single, class Batch>
BatchKernel<Real> walsh_hadamard(const std::string& name, int order, Single single, Batch batch) {
    return {.name = name,
            .size = order,
            .parts = 1,
            .source_elements = 1 << order,
            .destination_elements = 1 << order,
            .smallest = kLowestOrder,
            .largest = kHighestOrder,
            .single = [=](const Real* src, Real* dst,
                          std::int32_t flag) { return single(src, dst, order, flag, nullptr); },
            .batch =
                [=](const BatchCall<Real>& c) {
                    return batch(c.source, c.source_stride, c.source_distance, c.destination,
                                 c.destination_stride, c.destination_distance, c.size, c.count,
                                 c.flag, nullptr);
                }};
}

// NOLINTBEGIN(bugprone-macro-parentheses): names and types are pasted.
#define QSVG_DFT(function, Element, Real, source, destination)                      \
    all.push_back(dft<Element, Real>("qsvgBatch" #function, n, source, destination, \
                                     qsvg##function, qsvgBatch##function))
#define QSVG_ALL_OF(real, complex, Real, Complex)                                            \
    std::vector<BatchKernel<Real>> kernels_of(Real) {                                        \
        std::vector<BatchKernel<Real>> all;                                                  \
        for (int n = kShortest; n <= kLongest; ++n) {                                        \
            QSVG_DFT(DFTFwd_CToC_##complex, Complex, Real, n, n);                            \
            QSVG_DFT(DFTInv_CToC_##complex, Complex, Real, n, n);                            \
            QSVG_DFT(DFTFwd_RToCCS_##real, Real, Real, n, ccs_elements(n));                  \
            QSVG_DFT(DFTFwd_RToPack_##real, Real, Real, n, n);                               \
            QSVG_DFT(DFTFwd_RToPerm_##real, Real, Real, n, n);                               \
            QSVG_DFT(DFTInv_CCSToR_##real, Real, Real, ccs_elements(n), n);                  \
            QSVG_DFT(DFTInv_PackToR_##real, Real, Real, n, n);                               \
            QSVG_DFT(DFTInv_PermToR_##real, Real, Real, n, n);                               \
            QSVG_DFT(Hartley_##real, Real, Real, n, n);                                      \
        }                                                                                    \
        for (int order = kLowestOrder; order <= kHighestOrder; ++order)                      \
            all.push_back(walsh_hadamard<Real>("qsvgBatchWHT_" #real, order, qsvgWHT_##real, \
                                               qsvgBatchWHT_##real));                        \
        return all;                                                                          \
    }
// NOLINTEND(bugprone-macro-parentheses)

QSVG_ALL_OF(32f, 32fc, Real32, Complex32)
QSVG_ALL_OF(64f, 64fc, Real64, Complex64)

}  // namespace

template <>
const std::vector<BatchKernel<Real32>>& batch_kernels<Real32>() {
    static const auto all = kernels_of(Real32());
    return all;
}
template <>
const std::vector<BatchKernel<Real64>>& batch_kernels<Real64>() {
    static const auto all = kernels_of(Real64());
    return all;
}

}  // namespace qsvgen_test
