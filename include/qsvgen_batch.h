/**
 * @file qsvgen_batch.h
 * @brief Many transforms of one size in a call: rows and columns of images, frames of a recording,
 *        pencils of a three-dimensional array. For C and C++.
 *
 * Every transform of qsvgen.h whose size is an argument, but for the DCT-IV, has its companion
 * here: the same name with qsvgBatch at its beginning, the same elements, size and flag. What such
 * a call gives is what as many single calls give, bit by bit. See @ref batches.
 *
 * They stand in the libraries that qsvgen.h names; nothing more is linked.
 */
#ifndef QSVGEN_BATCH_H
#define QSVGEN_BATCH_H

#include <stddef.h>

#include "qsvgen.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @defgroup batches Batches
 *
 * What a transform is, and how its result is scaled and laid out, is told where the single one is.
 *
 * **Shapes.** A call does count transforms. Element j of transform k is read from and written to
 *
 *     src[j * srcStride + k * srcDist]
 *     dst[j * dstStride + k * dstDist]
 *
 * Strides and distances count elements of the array's own type: Complex32 of _32fc, Complex64 of
 * _64fc, Real32 of _32f, Real64 of _64f. Elements of half spectra are the real ones of their
 * layout, counted one by one: a CCS spectrum has N + 2 or N + 1, others N. Any stride and any
 * distance will do, negative ones and 0 too.
 *
 * | transforms                             | stride | distance          |
 * |----------------------------------------|--------|-------------------|
 * | one behind the other                   | 1      | elements of one   |
 * | columns of a row-major array           | count  | 1                 |
 * | rows of an array whose rows are longer | 1      | elements of a row |
 * | frames of a recording, hop apart       | 1      | hop               |
 * | from the last sample to the first      | -1     | as above          |
 *
 * Nothing but these elements is read or written, neither between them nor behind the last.
 *
 * **Count.** 0 does nothing, behind the same checks. 1 is the single call; its distances are not
 * looked at. A count is an int32_t; the product of a count and a distance is not bounded by that:
 * in 64-bit programs transforms may stand more than 2^31 elements apart.
 *
 * **Overlap.** Sources may share elements with each other: a distance below the length slides a
 * window, a distance or stride of 0 reads the same element again. Elements of destinations must be
 * apart from each other.
 *
 * **In place.** dst may be src with the same stride and the same distance. Where a transform has
 * more elements on one side than on the other (CCS), there is to be room for the more of them:
 * within the distance, or where the stride is the larger of the two, in the array. Source and
 * destination may also take turns in one array as long as they share no element. Any other overlap
 * is not supported.
 *
 * **The same bits.** Transform k has the bits of the single call on its elements: for every flag,
 * stride, distance, count and place among the others, on every processor and from every library
 * that is chosen for it. As of single calls that holds for rounding to nearest, and of an output
 * that is a NaN, that it is one. Vectors that are not full raise no exception flag that the
 * transforms themselves do not.
 *
 * **Alignment.** That of the element's numbers: 4 bytes; 8 bytes of doubles in 64-bit programs.
 *
 * **Memory.** Nothing is allocated, but for the work buffer of Walsh-Hadamard transforms where
 * that is null. A call takes at most 64 KiB of stack.
 *
 * **Threads.** No function has state of its own or takes a lock. A batch is shared out among
 * threads by a call for each part of its transforms.
 *
 * **Statuses,** in the order of the checks: #qsvStatusBadLength (length or order), then
 * #qsvStatusBadLength (count below 0), #qsvStatusNullPointer (src, then dst), #qsvStatusBadFlag. A
 * refused call has read, written and allocated nothing.
 *
 * **Method.** The additions and multiplications of a single transform, each on a vector with as
 * many transforms side by side as it has lanes. Columns are read where they stand, all else is
 * transposed on its way.
 *
 * @{
 */

/**
 * Complex DFTs, each as of qsvgDFTFwd_CToC_32fc.
 * @param src       element 0 of transform 0, not null
 * @param srcStride from an element of a transform to its next
 * @param srcDist   from a transform to the next
 * @param dst       bin 0 of its result, not null; may be src, see above
 * @param dstStride as srcStride, of the results
 * @param dstDist   as srcDist, of the results
 * @param length    of each transform, as of qsvgDFTFwd_CToC_32fc, else qsvStatusBadLength
 * @param count     how many transforms, from 0 on, else qsvStatusBadLength
 * @param flag      one of QsvScaleFlag, for all of them, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgBatchDFTFwd_CToC_32fc(const Complex32* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex32* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
/** Inverses of qsvgBatchDFTFwd_CToC_32fc, with the same arguments. */
QSVG_API QsvStatus qsvgBatchDFTInv_CToC_32fc(const Complex32* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex32* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);

/** qsvgBatchDFTFwd_CToC_32fc in double precision. */
QSVG_API QsvStatus qsvgBatchDFTFwd_CToC_64fc(const Complex64* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex64* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);
/** qsvgBatchDFTInv_CToC_32fc in double precision. */
QSVG_API QsvStatus qsvgBatchDFTInv_CToC_64fc(const Complex64* src, ptrdiff_t srcStride,
                                             ptrdiff_t srcDist, Complex64* dst, ptrdiff_t dstStride,
                                             ptrdiff_t dstDist, int32_t length, int32_t count,
                                             int32_t flag);

/**
 * Real-input DFTs, their spectra in the CCS layout, each as of qsvgDFTFwd_RToCCS_32f.
 * @param src       sample 0 of transform 0, not null
 * @param srcStride from an element of a transform to its next
 * @param srcDist   from a transform to the next
 * @param dst       element 0 of its spectrum, not null; may be src, see above
 * @param dstStride as srcStride, of the results
 * @param dstDist   as srcDist, of the results
 * @param length    of each transform, as of qsvgDFTFwd_RToCCS_32f, else qsvStatusBadLength
 * @param count     how many transforms, from 0 on, else qsvStatusBadLength
 * @param flag      one of QsvScaleFlag, for all of them, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToCCS_32f(const Real32* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
/** The same in the Pack layout: a spectrum has length elements. */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPack_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
/** The same in the Perm layout: a spectrum has length elements. */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPerm_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);

/**
 * Real signals of spectra in the CCS layout, each as of qsvgDFTInv_CCSToR_32f.
 * @param src       element 0 of the spectrum of transform 0, not null
 * @param srcStride from an element of a transform to its next
 * @param srcDist   from a transform to the next
 * @param dst       sample 0 of its signal, not null; may be src, see above
 * @param dstStride as srcStride, of the results
 * @param dstDist   as srcDist, of the results
 * @param length    of each transform, as of qsvgDFTInv_CCSToR_32f, else qsvStatusBadLength
 * @param count     how many transforms, from 0 on, else qsvStatusBadLength
 * @param flag      one of QsvScaleFlag, for all of them, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgBatchDFTInv_CCSToR_32f(const Real32* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
/** The same from the Pack layout: a spectrum has length elements. */
QSVG_API QsvStatus qsvgBatchDFTInv_PackToR_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
/** The same from the Perm layout: a spectrum has length elements. */
QSVG_API QsvStatus qsvgBatchDFTInv_PermToR_32f(const Real32* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real32* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);

/** qsvgBatchDFTFwd_RToCCS_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToCCS_64f(const Real64* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
/** qsvgBatchDFTFwd_RToPack_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPack_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
/** qsvgBatchDFTFwd_RToPerm_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTFwd_RToPerm_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
/** qsvgBatchDFTInv_CCSToR_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTInv_CCSToR_64f(const Real64* src, ptrdiff_t srcStride,
                                              ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                              ptrdiff_t dstDist, int32_t length, int32_t count,
                                              int32_t flag);
/** qsvgBatchDFTInv_PackToR_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTInv_PackToR_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);
/** qsvgBatchDFTInv_PermToR_32f in double precision. */
QSVG_API QsvStatus qsvgBatchDFTInv_PermToR_64f(const Real64* src, ptrdiff_t srcStride,
                                               ptrdiff_t srcDist, Real64* dst, ptrdiff_t dstStride,
                                               ptrdiff_t dstDist, int32_t length, int32_t count,
                                               int32_t flag);

/**
 * Hartley transforms, each as of qsvgHartley_32f.
 * @param src       element 0 of transform 0, not null
 * @param srcStride from an element of a transform to its next
 * @param srcDist   from a transform to the next
 * @param dst       bin 0 of its result, not null; may be src, see above
 * @param dstStride as srcStride, of the results
 * @param dstDist   as srcDist, of the results
 * @param length    of each transform, as of qsvgHartley_32f, else qsvStatusBadLength
 * @param count     how many transforms, from 0 on, else qsvStatusBadLength
 * @param flag      one of QsvScaleFlag, for all of them, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgBatchHartley_32f(const Real32* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                        Real32* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                        int32_t length, int32_t count, int32_t flag);
/** qsvgBatchHartley_32f in double precision. */
QSVG_API QsvStatus qsvgBatchHartley_64f(const Real64* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                        Real64* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                        int32_t length, int32_t count, int32_t flag);

/**
 * Walsh-Hadamard transforms of 2^order elements, each as of qsvgWHT_32f.
 * @param src       element 0 of transform 0, not null
 * @param srcStride from an element of a transform to its next
 * @param srcDist   from a transform to the next
 * @param dst       bin 0 of its result, not null; may be src, see above
 * @param dstStride as srcStride, of the results
 * @param dstDist   as srcDist, of the results
 * @param order     of each transform, as of qsvgWHT_32f, else qsvStatusBadLength
 * @param count     how many transforms, from 0 on, else qsvStatusBadLength
 * @param flag      one of QsvScaleFlag, for all of them, else qsvStatusBadFlag
 * @param buffer    as many bytes as qsvgWHTGetBufferSize_32f tells on a 16-byte boundary, whatever
 *                  the count, apart from src and dst; or null: then one block is allocated for the
 *                  call, where that size is not 0
 */
QSVG_API QsvStatus qsvgBatchWHT_32f(const Real32* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                    Real32* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                    int32_t order, int32_t count, int32_t flag, uint8_t* buffer);
/** qsvgBatchWHT_32f in double precision. */
QSVG_API QsvStatus qsvgBatchWHT_64f(const Real64* src, ptrdiff_t srcStride, ptrdiff_t srcDist,
                                    Real64* dst, ptrdiff_t dstStride, ptrdiff_t dstDist,
                                    int32_t order, int32_t count, int32_t flag, uint8_t* buffer);

/** @} */

#ifdef __cplusplus
}
#endif

#endif /* QSVGEN_BATCH_H */
