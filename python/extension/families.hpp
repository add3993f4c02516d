#pragma once

/** @file @brief The ten transforms: what of the C interface computes each, of which lengths and
 * elements. */

#include <cstddef>
#include <cstdint>

#include "qsvgen.h"

namespace python {

enum class Precision { kSingle, kDouble };

enum class Norm { kBackward, kOrtho, kForward };

/** What an array holds along the transformed axis. A half spectrum is complex for NumPy, and real
 * elements, two a bin, for the C interface. */
enum class Elements { kReal, kComplex, kHalfSpectrum };

/** Which lengths have a transform: 2 to 64, or powers of two. */
enum class Lengths { kKernels, kOrders, kPlans };

/** What calls of one thread have for themselves. */
struct WorkSpace {
    uint8_t* buffer = nullptr;  ///< as many bytes as work_buffer_bytes tells
    void* plan = nullptr;       ///< of the DCT-IV, made for the precision and the length
    double scale = 1;           ///< by which results of the DCT-IV are multiplied
};

/** Many transforms. Strides and distances count elements of the C interface; the DCT-IV takes
 * strides of 1 alone. */
using Batch = QsvStatus (*)(const void* src, ptrdiff_t srcStride, ptrdiff_t srcDist, void* dst,
                            ptrdiff_t dstStride, ptrdiff_t dstDist, int32_t length, int32_t count,
                            int32_t flag, const WorkSpace& space);

/** One transform of contiguous elements that needs no work space. */
using Single = QsvStatus (*)(const void* src, void* dst, int32_t length, int32_t flag);

struct Family {
    const char* name;
    const char* transform;  ///< as messages call it
    Elements source;
    Elements result;
    Lengths lengths;
    bool inverse;
    Batch batch[2];    ///< by precision
    Single single[2];  ///< likewise; null for the DCT-IV
};

extern const Family kFft, kIfft, kRfft, kIrfft, kDht, kIdht, kFwht, kIfwht, kDct4, kIdct4;

/** Whether a transform of the length exists. */
bool has_length(const Family& family, Precision precision, ptrdiff_t length);

/** Whether the single transform of the length runs without a work space. */
inline bool runs_without_space(const Family& family, ptrdiff_t length) {
    constexpr ptrdiff_t kLongestWithout = 128;
    return family.lengths != Lengths::kPlans && length <= kLongestWithout;
}

/** Bytes of WorkSpace::buffer. */
ptrdiff_t work_buffer_bytes(const Family& family, Precision precision, ptrdiff_t length);

/** The C interface's flag for a norm; the DCT-IV has none. */
inline int32_t flag_of(const Family& family, Norm norm) {
    if (norm == Norm::kOrtho) return qsvScaleBySqrtN;
    if (family.inverse) return norm == Norm::kBackward ? qsvScaleInvByN : qsvScaleNone;
    return norm == Norm::kForward ? qsvScaleFwdByN : qsvScaleNone;
}

/** By what the C library's DCT-IV is multiplied: 2, sqrt(2/N) or 1/N. */
double dct4_scale(const Family& family, Norm norm, ptrdiff_t length);

/** Bytes of a real number. */
inline ptrdiff_t bytes_of(Precision precision) {
    return precision == Precision::kSingle ? sizeof(Real32) : sizeof(Real64);
}

/** Bytes of an element as the C interface counts them. */
inline ptrdiff_t unit_of(Elements elements, Precision precision) {
    return elements == Elements::kComplex ? 2 * bytes_of(precision) : bytes_of(precision);
}

/** Bytes of an element as NumPy counts them. */
inline ptrdiff_t item_of(Elements elements, Precision precision) {
    return elements == Elements::kReal ? bytes_of(precision) : 2 * bytes_of(precision);
}

/** NumPy's elements along the axis of a transform of a length. */
inline ptrdiff_t items_of(Elements elements, ptrdiff_t length) {
    return elements == Elements::kHalfSpectrum ? length / 2 + 1 : length;
}

}  // namespace python
