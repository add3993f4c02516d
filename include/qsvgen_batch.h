/**
 * @file qsvgen_batch.h
 * @brief Many transforms of one length in a call: rows and columns of images, frames of a
 * recording, pencils of an array, for C and C++.
 *
 * Element j of transform k is src[j * srcStride + k * srcDist], and bin or sample j of its result
 * dst[j * dstStride + k * dstDist], in elements of the arrays' own types (those of spectra are
 * real).
 */
#ifndef QSVGEN_BATCH_H
#define QSVGEN_BATCH_H

#include <stddef.h>

#include "qsvgen.h"

#ifdef __cplusplus
extern "C" {
#endif

QSVG_API QsvStatus qsvgBatchDFTFwd_CToC_32fc(const Complex32* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex32* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_CToC_64fc(const Complex64* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex64* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_CToC_32fc(const Complex32* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex32* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_CToC_64fc(const Complex64* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex64* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToCCS_32f(const Real32* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToCCS_64f(const Real64* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPack_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPack_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPerm_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPerm_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_CCSToR_32f(const Real32* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_CCSToR_64f(const Real64* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_PackToR_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_PackToR_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_PermToR_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchDFTInv_PermToR_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
QSVG_API QsvStatus qsvgBatchHartley_32f(const Real32* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                        Real32* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                        int32_t length, int32_t count, int32_t flag);
QSVG_API QsvStatus qsvgBatchHartley_64f(const Real64* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                        Real64* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                        int32_t length, int32_t count, int32_t flag);

QSVG_API QsvStatus qsvgBatchWHT_32f(const Real32* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                    Real32* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                    int32_t order, int32_t count, int32_t flag, uint8_t* buffer);
QSVG_API QsvStatus qsvgBatchWHT_64f(const Real64* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                    Real64* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                    int32_t order, int32_t count, int32_t flag, uint8_t* buffer);

#ifdef __cplusplus
}
#endif

#endif /* QSVGEN_BATCH_H */
