/**
 * @file qsvgen.h
 * @brief Discrete transforms of small fixed sizes, and the DCT-IV by a plan: all that is exported
 *        but for batches, for C and C++.
 *
 * | family                           | sizes                         | functions             |
 * |----------------------------------|-------------------------------|-----------------------|
 * | @ref dft_complex "complex DFT"   | N = 2 to 64                   | qsvgDFTFwd_CToC_...   |
 * | @ref dft_real "real-input DFT"   | N = 2 to 64                   | qsvgDFTFwd_RToCCS_... |
 * | @ref hartley "Hartley"           | N = 2 to 64                   | qsvgHartley_...       |
 * | @ref walsh_hadamard "Walsh-Hadamard" | N = 2^K, K = 1 to 13      | qsvgWHT_...           |
 * | @ref dct4 "DCT-IV"               | N = 2^k from 2 on, by a plan  | qsvgDCT4_...          |
 *
 * Many transforms in a call, of all but the DCT-IV: @ref batches, in qsvgen_batch.h.
 *
 * One header for three libraries, whose results are the same, bit by bit:
 *
 * | programs                    | link with  | shared object      | its companion     |
 * |-----------------------------|------------|--------------------|-------------------|
 * | 64-bit x86                  | -lqsvgen   | libqsvgen.so.6     | none              |
 * | 32-bit x86 with SSE2 (-m32) | -lqsvgent7 | libqsvgent7.so.6.1 | libqsvcore.so.6.1 |
 * | AArch64, little-endian      | -lqsvgen   | libqsvgen.so.6     | none              |
 *
 * What is told below of the 32-bit library holds for that alone, what is told of the 64-bit one
 * holds for the two others; all else holds for all.
 *
 * A name ends with its element: _32fc Complex32, _64fc Complex64, _32f Real32, _64f Real64. Before
 * that a kernel of one size has the size as a number; without one, the size is an argument.
 *
 * What holds for all of them:
 *
 * - Sizes are counts of elements; what a buffer needs is told in bytes. Arrays of other sizes than
 *   stated are not noticed: of a longer one the rest is left alone, a shorter one is overrun.
 * - Refusal: a refused call of a transform has read, written and allocated nothing. Sample values
 *   are never examined: NaN, infinities and denormals go where the arithmetic takes them.
 * - Threads, exceptions: no function has state of its own, takes a lock or throws.
 * - Floating-point environment: every sum, product and conversion of a transform follows the
 *   caller's MXCSR (rounding, denormals as zero) or, on AArch64, FPCR (default NaNs, too), which
 *   is never read or changed but for the exception flags that arithmetic raises. No transform uses
 *   an x87 or MMX register; making a plan may. While a plan is made, its tables are rounded to
 *   nearest and nothing traps; then all but the exception flags is as the caller had set it, so
 *   that a plan is the same in any mode.
 * - The same bits, in whatever way a size is reached: aligned or not, in place or not, by its own
 *   name or by a size that is an argument, in any thread, built by GCC or Clang, on any processor.
 *   That holds for rounding to nearest. Of an output that is a NaN it holds that it is one, not
 *   which: sign and payload may differ from one of these ways to the next.
 */
#ifndef QSVGEN_H
#define QSVGEN_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__EXCEPTIONS)
#define QSVG_API __attribute__((visibility("default"), nothrow))
#elif defined(__GNUC__)
#define QSVG_API __attribute__((visibility("default")))
#else
#define QSVG_API
#endif

/** @defgroup elements Elements, statuses and flags
 *  @{ */

/** IEEE 754 binary32 sample. */
typedef float Real32;
/** IEEE 754 binary64 sample. */
typedef double Real64;
/** Two Real32, real part first. */
typedef struct {
    Real32 re; /**< real part */
    Real32 im; /**< imaginary part */
} Complex32;
/** Two Real64, real part first. */
typedef struct {
    Real64 re; /**< real part */
    Real64 im; /**< imaginary part */
} Complex64;

/** Result of every exported operation but the version query. Negative values are failures. */
typedef int32_t QsvStatus;

enum {
    qsvStatusOk = 0,           /**< the operation was done */
    qsvStatusBadPlan = -5,     /**< a plan node holds a rule that has no compute step */
    qsvStatusBadLength = -6,   /**< length or order outside the supported range */
    qsvStatusNullPointer = -8, /**< a required pointer is null */
    qsvStatusBadFlag = -16     /**< the flag is not one of the four of QsvScaleFlag */
};

/**
 * By what the result of a transform of length N is multiplied. An enumeration, not a bit mask:
 * any other value is refused. A forward and an inverse transform called with the same flag give
 * back the input times 1, or times N for qsvScaleNone. The factor is 1/N or 1/sqrt(N) rounded to
 * the element type, but for one case: 1/sqrt(N) of Walsh-Hadamard transforms of Real64 elements and
 * odd order is one unit in the last place below that (0x3FE6A09E667F3BCC for order 1).
 */
enum QsvScaleFlag {
    qsvScaleFwdByN = 1,  /**< forward, Hartley and Walsh-Hadamard by 1/N, inverse by 1 */
    qsvScaleInvByN = 2,  /**< inverse, Hartley and Walsh-Hadamard by 1/N, forward by 1 */
    qsvScaleBySqrtN = 4, /**< all by 1/sqrt(N) */
    qsvScaleNone = 8     /**< all by 1 */
};

/** @} */

/**
 * @defgroup version Version
 * @{
 */

/** What qsvgenGetLibVersion tells of the library; 32 bytes of the 32-bit one, 48 of the other. */
typedef struct {
    int32_t majorVersion;    /**< major version */
    int32_t minorVersion;    /**< minor version */
    int32_t majorBuild;      /**< major build */
    int32_t build;           /**< build */
    char targetCode[4];      /**< t7 (32-bit library), x64, or of the level that the loader has
                                  chosen v3 or v4; padded with zero bytes */
    const char* name;        /**< the shared object's own name */
    const char* versionText; /**< version as text */
    const char* buildDate;   /**< date of the build as text */
} LibraryVersion;

/** The one constant record that identifies the library. Never null; not the caller's to free. */
QSVG_API const LibraryVersion* qsvgenGetLibVersion(void);

/** @} */

/** Calls X(N) for each transform length N from 2 to 64. */
/* clang-format off */
#define QSVG_FOR_EACH_LENGTH(X) \
    X(2) X(3) X(4) X(5) X(6) X(7) X(8) X(9) X(10) \
    X(11) X(12) X(13) X(14) X(15) X(16) X(17) X(18) X(19) \
    X(20) X(21) X(22) X(23) X(24) X(25) X(26) X(27) X(28) \
    X(29) X(30) X(31) X(32) X(33) X(34) X(35) X(36) X(37) \
    X(38) X(39) X(40) X(41) X(42) X(43) X(44) X(45) X(46) \
    X(47) X(48) X(49) X(50) X(51) X(52) X(53) X(54) X(55) \
    X(56) X(57) X(58) X(59) X(60) X(61) X(62) X(63) X(64)
/* clang-format on */

/**
 * @defgroup dft_complex Complex DFT, N = 2 to 64
 *
 *     forward  y[k] = s * sum over n of x[n] * exp(-2 pi i n k / N)
 *     inverse  y[k] = s * sum over n of x[n] * exp(+2 pi i n k / N)
 *
 * **Scaling.** s is chosen by the flag (#QsvScaleFlag); every output is multiplied once by s.
 *
 * **Layout and sizes.** x (src) and y (dst) hold N complex elements each, re before im, in natural
 * order.
 *
 * **Precision.** All arithmetic is of the element's own type, but for lengths 3 and 5 of Complex32:
 * they form products by constants, and sums with these, in binary64 and round each result once.
 *
 * **Aliasing.** src and dst may be the same array, with the same bits as out of place. A partial
 * overlap is not supported.
 *
 * **Alignment.** Any address of whole 32-bit words. Where both arrays stand on 16-byte boundaries a
 * faster path runs, with the same bits.
 *
 * **Threads.** Each function is a pure function of its arguments.
 *
 * **Statuses,** in the order of the checks: #qsvStatusBadLength (where the length is an argument),
 * #qsvStatusNullPointer (src or dst), #qsvStatusBadFlag.
 *
 * @{
 */

/**
 * Complex DFT of a length given at run time.
 * @param src    length elements, not null
 * @param dst    length elements, not null; may be src
 * @param length 2 to 64, else qsvStatusBadLength
 * @param flag   one of QsvScaleFlag, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgDFTFwd_CToC_32fc(const Complex32* src, Complex32* dst, int32_t length,
                                        int32_t flag);
/** Inverse of qsvgDFTFwd_CToC_32fc, with the same arguments. */
QSVG_API QsvStatus qsvgDFTInv_CToC_32fc(const Complex32* src, Complex32* dst, int32_t length,
                                        int32_t flag);

/** qsvgDFTFwd_CToC_32fc in double precision. */
QSVG_API QsvStatus qsvgDFTFwd_CToC_64fc(const Complex64* src, Complex64* dst, int32_t length,
                                        int32_t flag);
/** qsvgDFTInv_CToC_32fc in double precision. */
QSVG_API QsvStatus qsvgDFTInv_CToC_64fc(const Complex64* src, Complex64* dst, int32_t length,
                                        int32_t flag);

/** Complex DFT kernels of one length each: qsvgDFTFwd_CToC_2_32fc to qsvgDFTInv_CToC_64_32fc and
 *  qsvgDFTFwd_CToC_2_64fc to qsvgDFTInv_CToC_64_64fc. */
#define QSVG_DECLARE_DFT_COMPLEX(N)                                                     \
    QSVG_API QsvStatus qsvgDFTFwd_CToC_##N##_32fc(const Complex32* src, Complex32* dst, \
                                                  int32_t flag);                        \
    QSVG_API QsvStatus qsvgDFTInv_CToC_##N##_32fc(const Complex32* src, Complex32* dst, \
                                                  int32_t flag);                        \
    QSVG_API QsvStatus qsvgDFTFwd_CToC_##N##_64fc(const Complex64* src, Complex64* dst, \
                                                  int32_t flag);                        \
    QSVG_API QsvStatus qsvgDFTInv_CToC_##N##_64fc(const Complex64* src, Complex64* dst, \
                                                  int32_t flag);
QSVG_FOR_EACH_LENGTH(QSVG_DECLARE_DFT_COMPLEX)
#undef QSVG_DECLARE_DFT_COMPLEX

/** @} */

/** Declares both element types of a kernel of real input. */
#define QSVG_DECLARE_REAL_KERNEL(FAMILY, N)                                                    \
    QSVG_API QsvStatus qsvg##FAMILY##_##N##_32f(const Real32* src, Real32* dst, int32_t flag); \
    QSVG_API QsvStatus qsvg##FAMILY##_##N##_64f(const Real64* src, Real64* dst, int32_t flag);

/**
 * @defgroup dft_real Real-input DFT, N = 2 to 64
 *
 *     forward  X[k] = s * sum over n of x[n] * exp(-2 pi i n k / N), X[k] = R[k] + i I[k]
 *     inverse  x[n] = s * sum over k = 0 to N-1 of X[k] * exp(+2 pi i n k / N)
 *
 * **Scaling.** s is chosen by the flag (#QsvScaleFlag); every output is multiplied once by s.
 *
 * **Layouts and sizes.** x holds N real elements. Of the spectrum, whose bins above N/2 are the
 * conjugates of those below, an array of real elements holds the rest in one of three layouts:
 *
 *     CCS   R0 0 R1 I1 R2 I2 ...        and for even N  R[N/2] 0 at the end
 *     Pack  R0 R1 I1 R2 I2 ...          and for even N  R[N/2] at the end
 *     Perm  R0 R[N/2] R1 I1 R2 I2 ...   for even N; for odd N as Pack
 *
 * Pack and Perm have N elements, CCS has N + 2 for even and N + 1 for odd N. A forward transform
 * writes the two zeros of CCS as +0, an inverse one does not read them.
 *
 * **Precision.** Of Real32 elements, values pass from stage to stage in binary32. A product by a
 * constant, and a sum of such products, is formed in binary64 and rounded to binary32 once at its
 * end. Of Real64 elements all is binary64.
 *
 * **Aliasing.** src and dst may be the same array, if that is large enough for both, with the same
 * bits as out of place. A partial overlap is not supported.
 *
 * **Alignment.** Any address of whole 32-bit words; there is one path.
 *
 * **Threads.** Each function is a pure function of its arguments.
 *
 * **Statuses,** in the order of the checks: #qsvStatusBadLength (where the length is an argument),
 * #qsvStatusNullPointer (src or dst), #qsvStatusBadFlag.
 *
 * @{
 */

/**
 * Real-input DFT of a length given at run time, its spectrum in the CCS layout.
 * @param src    length elements, not null
 * @param dst    length + 2 elements for an even length, length + 1 for an odd one, not null; may be
 *               src if that has as many
 * @param length 2 to 64, else qsvStatusBadLength
 * @param flag   one of QsvScaleFlag, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgDFTFwd_RToCCS_32f(const Real32* src, Real32* dst, int32_t length,
                                         int32_t flag);
/** The same in the Pack layout: dst has length elements. */
QSVG_API QsvStatus qsvgDFTFwd_RToPack_32f(const Real32* src, Real32* dst, int32_t length,
                                          int32_t flag);
/** The same in the Perm layout: dst has length elements. */
QSVG_API QsvStatus qsvgDFTFwd_RToPerm_32f(const Real32* src, Real32* dst, int32_t length,
                                          int32_t flag);

/**
 * Real signal of a spectrum in the CCS layout, of a length given at run time.
 * @param src    as long as dst of qsvgDFTFwd_RToCCS_32f; its zeros are not read
 * @param dst    length elements, not null; may be src
 * @param length 2 to 64, else qsvStatusBadLength
 * @param flag   one of QsvScaleFlag, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgDFTInv_CCSToR_32f(const Real32* src, Real32* dst, int32_t length,
                                         int32_t flag);
/** The same from the Pack layout: src has length elements. */
QSVG_API QsvStatus qsvgDFTInv_PackToR_32f(const Real32* src, Real32* dst, int32_t length,
                                          int32_t flag);
/** The same from the Perm layout: src has length elements. */
QSVG_API QsvStatus qsvgDFTInv_PermToR_32f(const Real32* src, Real32* dst, int32_t length,
                                          int32_t flag);

/** qsvgDFTFwd_RToCCS_32f in double precision. */
QSVG_API QsvStatus qsvgDFTFwd_RToCCS_64f(const Real64* src, Real64* dst, int32_t length,
                                         int32_t flag);
/** qsvgDFTFwd_RToPack_32f in double precision. */
QSVG_API QsvStatus qsvgDFTFwd_RToPack_64f(const Real64* src, Real64* dst, int32_t length,
                                          int32_t flag);
/** qsvgDFTFwd_RToPerm_32f in double precision. */
QSVG_API QsvStatus qsvgDFTFwd_RToPerm_64f(const Real64* src, Real64* dst, int32_t length,
                                          int32_t flag);
/** qsvgDFTInv_CCSToR_32f in double precision. */
QSVG_API QsvStatus qsvgDFTInv_CCSToR_64f(const Real64* src, Real64* dst, int32_t length,
                                         int32_t flag);
/** qsvgDFTInv_PackToR_32f in double precision. */
QSVG_API QsvStatus qsvgDFTInv_PackToR_64f(const Real64* src, Real64* dst, int32_t length,
                                          int32_t flag);
/** qsvgDFTInv_PermToR_32f in double precision. */
QSVG_API QsvStatus qsvgDFTInv_PermToR_64f(const Real64* src, Real64* dst, int32_t length,
                                          int32_t flag);
/** Real-input DFT kernels of one length each: qsvgDFTFwd_RToCCS_2_32f to qsvgDFTInv_PermToR_64_64f.
 */
#define QSVG_DECLARE_DFT_REAL(N)                \
    QSVG_DECLARE_REAL_KERNEL(DFTFwd_RToCCS, N)  \
    QSVG_DECLARE_REAL_KERNEL(DFTFwd_RToPack, N) \
    QSVG_DECLARE_REAL_KERNEL(DFTFwd_RToPerm, N) \
    QSVG_DECLARE_REAL_KERNEL(DFTInv_CCSToR, N)  \
    QSVG_DECLARE_REAL_KERNEL(DFTInv_PackToR, N) \
    QSVG_DECLARE_REAL_KERNEL(DFTInv_PermToR, N)
QSVG_FOR_EACH_LENGTH(QSVG_DECLARE_DFT_REAL)
#undef QSVG_DECLARE_DFT_REAL

/** @} */

/**
 * @defgroup hartley Hartley transform, N = 2 to 64
 *
 *     y[k] = s * sum over n of x[n] * (cos(2 pi n k / N) + sin(2 pi n k / N))
 *
 * **Scaling.** s is chosen by the flag (#QsvScaleFlag); every output is multiplied once by s. The
 * transform is its own inverse up to the factor N.
 *
 * **Layout and sizes.** x (src) and y (dst) hold N real elements each, in natural order.
 *
 * **Precision, aliasing, alignment, threads, statuses** as of the @ref dft_real "real-input DFT".
 *
 * @{
 */

/**
 * Hartley transform of a length given at run time.
 * @param src    length elements, not null
 * @param dst    length elements, not null; may be src
 * @param length 2 to 64, else qsvStatusBadLength
 * @param flag   one of QsvScaleFlag, else qsvStatusBadFlag
 */
QSVG_API QsvStatus qsvgHartley_32f(const Real32* src, Real32* dst, int32_t length, int32_t flag);

/** qsvgHartley_32f in double precision. */
QSVG_API QsvStatus qsvgHartley_64f(const Real64* src, Real64* dst, int32_t length, int32_t flag);

/** Hartley kernels of one length each: qsvgHartley_2_32f to qsvgHartley_64_64f. */
#define QSVG_DECLARE_HARTLEY(N) QSVG_DECLARE_REAL_KERNEL(Hartley, N)
QSVG_FOR_EACH_LENGTH(QSVG_DECLARE_HARTLEY)
#undef QSVG_DECLARE_HARTLEY

/** @} */

#undef QSVG_DECLARE_REAL_KERNEL

/**
 * @defgroup walsh_hadamard Walsh-Hadamard transform, N = 2^K, K = 1 to 13
 *
 *     y[k] = s * sum over n of (-1)^(number of ones in the binary digits of k AND n) * x[n]
 *
 * **Scaling.** s is chosen by the flag (#QsvScaleFlag); every output is multiplied once by s. The
 * transform is its own inverse up to the factor N.
 *
 * **Layout and sizes.** x (src) and y (dst) hold N real elements each, in natural (Hadamard) order,
 * which is neither sequency nor bit-reversed order.
 *
 * **Precision.** Rounding is part of the contract. For the strides h = 1, 2, 4, ..., N/2 in this
 * order each pair (a, b) = (x[j], x[j + h]), bit h of j clear, becomes (a + b, a - b), rounded to
 * the element type; then every element is multiplied once by s. Every kernel gives the bits of that
 * sequence.
 *
 * **Work buffer.** Orders 8 to 13 pass through a work buffer of the size that
 * qsvgWHTGetBufferSize_32f or _64f tells, on a 16-byte boundary whatever the alignment of src and
 * dst. A larger one is used only that far, a smaller one is overrun. It holds nothing before or
 * after a call and must not be shared by calls at the same time. Where it is null the kernel takes
 * one block of that size and gives it back: the 32-bit library from qsvMalloc of the platform core
 * library, the 64-bit one from posix_memalign. A failure to get one is not detected, so that the
 * call then writes through a null pointer.
 *
 * **Aliasing.** src and dst may be the same array, with the same bits as out of place. A partial
 * overlap, also with the work buffer, is not supported.
 *
 * **Alignment.** Any address of whole 32-bit words. Where both arrays stand on 16-byte boundaries a
 * faster path runs, with the same bits.
 *
 * **Threads.** Each function is a pure function of its arguments.
 *
 * **Statuses,** in the order of the checks: #qsvStatusBadLength (where the order is an argument),
 * #qsvStatusNullPointer (src or dst), #qsvStatusBadFlag.
 *
 * **Method.** B. J. Fino and V. R. Algazi, "Unified matrix treatment of the fast Walsh-Hadamard
 * transform", IEEE Transactions on Computers C-25, 1976.
 *
 * @{
 */

/** Calls X(K) for each Walsh-Hadamard order K that needs no work buffer. */
#define QSVG_FOR_EACH_SHORT_ORDER(X) X(1) X(2) X(3) X(4) X(5) X(6) X(7)
/** Calls X(K) for each Walsh-Hadamard order K that passes through a work buffer. */
#define QSVG_FOR_EACH_LONG_ORDER(X) X(8) X(9) X(10) X(11) X(12) X(13)

/**
 * Size of the work buffer for qsvgWHT_32f.
 * @param order 1 to 13, else qsvStatusBadLength and size stays as it was
 * @param size  receives bytes, 0 for the orders 1 to 7; must not be null, which is not checked
 */
QSVG_API QsvStatus qsvgWHTGetBufferSize_32f(int32_t order, int32_t* size);
/** Size of the work buffer for qsvgWHT_64f, with the same arguments. */
QSVG_API QsvStatus qsvgWHTGetBufferSize_64f(int32_t order, int32_t* size);

/**
 * Walsh-Hadamard transform of an order given at run time.
 * @param src    2^order elements, not null
 * @param dst    2^order elements, not null; may be src
 * @param order  1 to 13, else qsvStatusBadLength
 * @param flag   one of QsvScaleFlag, else qsvStatusBadFlag
 * @param buffer as many bytes as qsvgWHTGetBufferSize_32f tells on a 16-byte boundary, apart from
 *               src and dst, or null: then a block is allocated for the call; not looked at for
 *               the orders 1 to 7
 */
QSVG_API QsvStatus qsvgWHT_32f(const Real32* src, Real32* dst, int32_t order, int32_t flag,
                               uint8_t* buffer);
/** qsvgWHT_32f in double precision. */
QSVG_API QsvStatus qsvgWHT_64f(const Real64* src, Real64* dst, int32_t order, int32_t flag,
                               uint8_t* buffer);

/** Walsh-Hadamard kernels of one order each: qsvgWHT_1_32f to qsvgWHT_13_64f. */
#define QSVG_DECLARE_WHT(K)                                                             \
    QSVG_API QsvStatus qsvgWHT_##K##_32f(const Real32* src, Real32* dst, int32_t flag); \
    QSVG_API QsvStatus qsvgWHT_##K##_64f(const Real64* src, Real64* dst, int32_t flag);
QSVG_FOR_EACH_SHORT_ORDER(QSVG_DECLARE_WHT)
#undef QSVG_DECLARE_WHT
#define QSVG_DECLARE_WHT(K)                                                            \
    QSVG_API QsvStatus qsvgWHT_##K##_32f(const Real32* src, Real32* dst, int32_t flag, \
                                         uint8_t* buffer);                             \
    QSVG_API QsvStatus qsvgWHT_##K##_64f(const Real64* src, Real64* dst, int32_t flag, \
                                         uint8_t* buffer);
QSVG_FOR_EACH_LONG_ORDER(QSVG_DECLARE_WHT)
#undef QSVG_DECLARE_WHT

/** @} */

/**
 * @defgroup dct4 DCT-IV, N = 2^k from 2 on, by a plan
 *
 *     y[k] = sum over n of x[n] * cos(pi/N * (n + 1/2) * (k + 1/2))
 *
 * **Scaling.** None, and no flag. The matrix is symmetric, so that the transform is its own inverse
 * up to the factor N/2.
 *
 * **Layout and sizes.** x (src) and y (dst) hold N real elements each, in natural order. Lengths
 * are 2^k up to 2^26 for Real32, up to 2^25 for Real64. The 64-bit library refuses all others, by
 * the size query and by both ways of making a plan, and has written nothing then. What else the
 * size query of the 32-bit library accepts is of no use: 2^k + 1 (from 33 on for Real32, from 9 on
 * for Real64), whose plan may be made, but reads and writes element N, one past the arrays; and
 * some lengths from 2^29 on whose size has wrapped around, so that no buffer could hold their plan:
 * none is made.
 *
 * **Plan.** Made once for a length and an element type and run any number of times, it lies in one
 * buffer that must stay where it is, untouched. Making it takes all memory and evaluates all sines
 * and cosines; running it does neither. There are two ways:
 *
 * - qsvgDCT4GetSize_32f, a buffer of the caller, qsvgDCT4Init_32f; no function ends it
 * - qsvgDCT4InitAlloc_32f, which allocates the buffer, and at last qsvgDCT4Free_32f
 *
 * A buffer larger than told is used only that far. A smaller one is overrun, when the plan is made
 * and when it is run. Sizes are those of the library that is asked: a plan of the 64-bit library
 * holds longer pointers and takes more.
 *
 * **Precision.** All sums, products and tables are of the element type. Tables hold sines and
 * cosines, correctly rounded, of multiples of pi that are rounded before.
 *
 * **Aliasing.** src and dst may be the same array, with the same bits as out of place. A partial
 * overlap, also with the plan, is not supported.
 *
 * **Alignment.** src and dst may stand at any boundary of their element. A buffer of the told size
 * is enough wherever it stands; but for the 32-bit library above the address 2^31, where off
 * 16-byte boundaries a plan of length 2 to 32 may take up to 11 bytes more.
 *
 * **Threads.** A plan of length 2, 4, 8, 16 or 32 is only read when it runs, by any number of
 * threads at once. Any other plan has work space in it and serves one call at a time. Different
 * plans do not know of each other.
 *
 * **Statuses.** #qsvStatusNullPointer before anything is looked at, then #qsvStatusBadLength where
 * a length is an argument. Of a plan no more is checked than the rule of its first node
 * (#qsvStatusBadPlan).
 *
 * **Method.** Odd-frequency analyses and syntheses, in two stages. Z. Wang, "Fast algorithms for
 * the discrete W transform and for the discrete Fourier transform", IEEE Transactions on Acoustics,
 * Speech, and Signal Processing ASSP-32, 1984.
 *
 * @{
 */

/** A plan of the DCT-IV of Real32 elements. */
typedef struct QsvDCT4Plan_32f QsvDCT4Plan_32f;
/** A plan of the DCT-IV of Real64 elements; neither type runs with the other's functions. */
typedef struct QsvDCT4Plan_64f QsvDCT4Plan_64f;

/**
 * Size of the buffer for qsvgDCT4Init_32f.
 * @param length a supported length, else qsvStatusBadLength and size stays as it was
 * @param size   receives bytes; must not be null, which is not checked
 */
QSVG_API QsvStatus qsvgDCT4GetSize_32f(int32_t length, int32_t* size);

/**
 * Makes a plan in the caller's buffer. It owns nothing outside: to be rid of it, drop the buffer.
 * @param plan   receives the plan, which lies in buffer; stays as it was on failure; not null
 * @param length a supported length, else qsvStatusBadLength; the 32-bit library has written to
 *               buffer then, so that a length which is not known to be supported goes to
 *               qsvgDCT4GetSize_32f first
 * @param buffer as many bytes as qsvgDCT4GetSize_32f tells, not null
 */
QSVG_API QsvStatus qsvgDCT4Init_32f(QsvDCT4Plan_32f** plan, int32_t length, uint8_t* buffer);

/**
 * Makes a plan in a buffer that is allocated for it: by qsvMalloc of the platform core library, of
 * the 64-bit library by posix_memalign.
 * @param plan   receives the plan; stays as it was on failure; not null
 * @param length a supported length, else qsvStatusBadLength; nothing is allocated then, or where
 *               the size has wrapped around (32-bit library), what was is freed
 * @return qsvStatusNullPointer also where memory has run out
 */
QSVG_API QsvStatus qsvgDCT4InitAlloc_32f(QsvDCT4Plan_32f** plan, int32_t length);

/**
 * Destroys a plan and gives its buffer back to qsvFree, of the 64-bit library to free.
 * @param plan one made by qsvgDCT4InitAlloc_32f, not by qsvgDCT4Init_32f; not null
 */
QSVG_API QsvStatus qsvgDCT4Free_32f(QsvDCT4Plan_32f* plan);

/**
 * DCT-IV of the plan's length N.
 * @param src  N elements, not null
 * @param dst  N elements, not null; may be src, with the same bits
 * @param plan not null, which is checked before src and dst; work space of a plan whose length is
 *             none of 2, 4, 8, 16 and 32 is written
 * @return qsvStatusBadPlan, with nothing written, where the plan's first node has no known rule
 */
QSVG_API QsvStatus qsvgDCT4_32f(const Real32* src, Real32* dst, QsvDCT4Plan_32f* plan);

/** qsvgDCT4GetSize_32f for Real64 elements. */
QSVG_API QsvStatus qsvgDCT4GetSize_64f(int32_t length, int32_t* size);
/** qsvgDCT4Init_32f for Real64 elements. */
QSVG_API QsvStatus qsvgDCT4Init_64f(QsvDCT4Plan_64f** plan, int32_t length, uint8_t* buffer);
/** qsvgDCT4InitAlloc_32f for Real64 elements. */
QSVG_API QsvStatus qsvgDCT4InitAlloc_64f(QsvDCT4Plan_64f** plan, int32_t length);
/** qsvgDCT4Free_32f for Real64 elements. */
QSVG_API QsvStatus qsvgDCT4Free_64f(QsvDCT4Plan_64f* plan);
/** qsvgDCT4_32f in double precision. */
QSVG_API QsvStatus qsvgDCT4_64f(const Real64* src, Real64* dst, QsvDCT4Plan_64f* plan);

/** @} */

#ifdef __cplusplus
}
#endif

#endif /* QSVGEN_H */
