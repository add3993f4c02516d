/**
 * @file
 * @brief The headers and the library as a C program sees them; compiled as C++ too.
 */

#include <stdio.h>
#include <string.h>

#include "qsvgen.h"
#include "qsvgen_batch.h"

#if defined(__x86_64__)
enum { kSizeOfVersionRecord = 48 };
static const char kTargetCode[4] = {'x', '6', '4', '\0'};
#elif defined(__aarch64__)
enum { kSizeOfVersionRecord = 48 };
static const char kTargetCode[4] = {'a', '6', '4', '\0'};
#else
enum { kSizeOfVersionRecord = 32 };
static const char kTargetCode[4] = {'t', '7', '\0', '\0'};
#endif

static int failures = 0;

static void expect(int condition, const char* what) {
    if (!condition) {
        printf("not so: %s\n", what);
        ++failures;
    }
}

/* Type by type, so that a declaration of another type is refused by a compiler. */
typedef QsvStatus (*BatchOf32fc)(const Complex32*, ptrdiff_t, ptrdiff_t, Complex32*, ptrdiff_t,
                                 ptrdiff_t, int32_t, int32_t, int32_t);
typedef QsvStatus (*BatchOf64fc)(const Complex64*, ptrdiff_t, ptrdiff_t, Complex64*, ptrdiff_t,
                                 ptrdiff_t, int32_t, int32_t, int32_t);
typedef QsvStatus (*BatchOf32f)(const Real32*, ptrdiff_t, ptrdiff_t, Real32*, ptrdiff_t, ptrdiff_t,
                                int32_t, int32_t, int32_t);
typedef QsvStatus (*BatchOf64f)(const Real64*, ptrdiff_t, ptrdiff_t, Real64*, ptrdiff_t, ptrdiff_t,
                                int32_t, int32_t, int32_t);
typedef QsvStatus (*BatchOfWHT32f)(const Real32*, ptrdiff_t, ptrdiff_t, Real32*, ptrdiff_t,
                                   ptrdiff_t, int32_t, int32_t, int32_t, uint8_t*);
typedef QsvStatus (*BatchOfWHT64f)(const Real64*, ptrdiff_t, ptrdiff_t, Real64*, ptrdiff_t,
                                   ptrdiff_t, int32_t, int32_t, int32_t, uint8_t*);

static const BatchOf32fc kBatchesOf32fc[] = {qsvgBatchDFTFwd_CToC_32fc, qsvgBatchDFTInv_CToC_32fc};
static const BatchOf64fc kBatchesOf64fc[] = {qsvgBatchDFTFwd_CToC_64fc, qsvgBatchDFTInv_CToC_64fc};
static const BatchOf32f kBatchesOf32f[] = {qsvgBatchDFTFwd_RToCCS_32f,  qsvgBatchDFTFwd_RToPack_32f,
                                           qsvgBatchDFTFwd_RToPerm_32f, qsvgBatchDFTInv_CCSToR_32f,
                                           qsvgBatchDFTInv_PackToR_32f, qsvgBatchDFTInv_PermToR_32f,
                                           qsvgBatchHartley_32f};
static const BatchOf64f kBatchesOf64f[] = {qsvgBatchDFTFwd_RToCCS_64f,  qsvgBatchDFTFwd_RToPack_64f,
                                           qsvgBatchDFTFwd_RToPerm_64f, qsvgBatchDFTInv_CCSToR_64f,
                                           qsvgBatchDFTInv_PackToR_64f, qsvgBatchDFTInv_PermToR_64f,
                                           qsvgBatchHartley_64f};
static const BatchOfWHT32f kBatchOfWHT32f = qsvgBatchWHT_32f;
static const BatchOfWHT64f kBatchOfWHT64f = qsvgBatchWHT_64f;

enum { kCount = 3 };

/* Of length 2, whose first output is the sum: of both elements, or of the two bins of a CCS
 * spectrum, behind each of which is a zero. */
// NOLINTNEXTLINE(modernize-redundant-void-arg): C
static void batches_of_pairs_give_their_sums(void) {
    const Real32 x[2 * kCount] = {1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f};
    const Real64 wide[2 * kCount] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    Real32 y[4 * kCount];
    Real64 wide_y[4 * kCount];
    size_t i;
    for (i = 0; i < sizeof kBatchesOf32f / sizeof kBatchesOf32f[0]; ++i) {
        memset(y, 0, sizeof y);
        memset(wide_y, 0, sizeof wide_y);
        expect(kBatchesOf32f[i](x, 1, 0, y, 1, 4, 2, 1, qsvScaleNone) == qsvStatusOk &&
                   kBatchesOf64f[i](wide, 1, 0, wide_y, 1, 4, 2, 1, qsvScaleNone) == qsvStatusOk,
               "a batch of one transform runs");
        const int is_ccs = kBatchesOf32f[i] == qsvgBatchDFTInv_CCSToR_32f;
        expect(y[0] == (is_ccs ? 4.0f : 3.0f) && wide_y[0] == (is_ccs ? 4.0 : 3.0),
               "in both types, and gives the sum first");
        expect(kBatchesOf32f[i](x, 1, 2, y, 1, 4, 2, -1, qsvScaleNone) == qsvStatusBadLength &&
                   kBatchesOf64f[i](wide, 1, 2, wide_y, 1, 4, 2, -1, qsvScaleNone) ==
                       qsvStatusBadLength,
               "a count below 0 is refused");
    }
    expect(kBatchOfWHT32f(x, 1, 2, y, 1, 2, 1, kCount, qsvScaleNone, NULL) == qsvStatusOk &&
               y[0] == 3.0f && y[2] == 7.0f && y[4] == 11.0f,
           "Walsh-Hadamard transforms of order 1");
    expect(kBatchOfWHT64f(wide, kCount, 1, wide_y, kCount, 1, 1, kCount, qsvScaleNone, NULL) ==
                   qsvStatusOk &&
               wide_y[0] == 5.0 && wide_y[1] == 7.0 && wide_y[2] == 9.0,
           "and of columns, in double precision");
}

// NOLINTNEXTLINE(modernize-redundant-void-arg): C
static void batches_of_complex_pairs_go_there_and_back(void) {
    Complex32 x[2 * kCount];
    Complex64 wide[2 * kCount];
    int i;
    for (i = 0; i < 2 * kCount; ++i) {
        x[i].re = (Real32)i;
        wide[i].re = i;
        x[i].im = 1.0f;
        wide[i].im = 1.0;
    }
    expect(kBatchesOf32fc[0](x, kCount, 1, x, kCount, 1, 2, kCount, qsvScaleFwdByN) == qsvStatusOk,
           "complex columns run in place");
    expect(x[0].re == 1.5f && x[1].re == 2.5f && x[2].re == 3.5f && x[3].re == -1.5f, "sums first");
    expect(kBatchesOf32fc[1](x, kCount, 1, x, kCount, 1, 2, kCount, qsvScaleFwdByN) == qsvStatusOk,
           "and back");
    expect(kBatchesOf64fc[0](wide, 1, 2, wide, 1, 2, 2, kCount, qsvScaleNone) == qsvStatusOk &&
               kBatchesOf64fc[1](wide, 1, 2, wide, 1, 2, 2, kCount, qsvScaleInvByN) == qsvStatusOk,
           "in double precision, one behind the other, there and back");
    for (i = 0; i < 2 * kCount; ++i) {
        expect(x[i].re == (Real32)i && x[i].im == 1.0f, "the input comes back");
        expect(wide[i].re == (Real64)i && wide[i].im == 1.0, "the input comes back, wide");
    }
    expect(kBatchesOf32fc[0](NULL, 1, 2, x, 1, 2, 2, 0, qsvScaleNone) == qsvStatusNullPointer &&
               kBatchesOf32fc[0](x, 1, 2, x, 1, 2, 2, 0, 3) == qsvStatusBadFlag &&
               kBatchesOf32fc[0](x, 1, 2, x, 1, 2, 2, 0, qsvScaleNone) == qsvStatusOk,
           "a batch of no transforms is checked");
}

int main(void) {  // NOLINT(modernize-redundant-void-arg): C
    const Complex32 x[4] = {{1.0f, 0.0f}, {2.0f, 0.0f}, {3.0f, 0.0f}, {4.0f, 0.0f}};
    Complex32 y[4] = {{0.0f, 0.0f}, {0.0f, 0.0f}, {0.0f, 0.0f}, {0.0f, 0.0f}};
    const Real32 signal[4] = {1.0f, 2.0f, 3.0f, 4.0f};
    Real32 spectrum[6] = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f};
    Real64 wide[3] = {1.0, 2.0, 4.0};
    const LibraryVersion* version = qsvgenGetLibVersion();

    expect(qsvgDFTFwd_CToC_4_32fc(x, y, qsvScaleNone) == qsvStatusOk, "length 4 runs");
    expect(y[0].re == 10.0f && y[0].im == 0.0f, "output 0 is the sum");
    expect(y[1].re == -2.0f && y[1].im == 2.0f, "output 1");
    expect(y[2].re == -2.0f && y[2].im == 0.0f, "output 2");
    expect(y[3].re == -2.0f && y[3].im == -2.0f, "output 3");
    expect(qsvgDFTInv_CToC_32fc(y, y, 4, qsvScaleInvByN) == qsvStatusOk, "and back in place");
    expect(y[0].re == 1.0f && y[1].re == 2.0f && y[2].re == 3.0f && y[3].re == 4.0f,
           "the input comes back");
    expect(qsvgDFTFwd_CToC_4_32fc(NULL, y, qsvScaleNone) == qsvStatusNullPointer, "null source");
    expect(qsvgDFTFwd_CToC_4_32fc(x, y, 3) == qsvStatusBadFlag, "flag 3");
    expect(qsvgDFTFwd_CToC_32fc(x, y, 65, qsvScaleNone) == qsvStatusBadLength, "length 65");

    expect(qsvgDFTFwd_RToCCS_4_32f(signal, spectrum, qsvScaleNone) == qsvStatusOk, "real length 4");
    expect(spectrum[0] == 10.0f && spectrum[1] == 0.0f && spectrum[2] == -2.0f &&
               spectrum[3] == 2.0f && spectrum[4] == -2.0f && spectrum[5] == 0.0f,
           "its spectrum");
    expect(qsvgDFTInv_CCSToR_32f(spectrum, spectrum, 4, qsvScaleInvByN) == qsvStatusOk,
           "and back in place");
    expect(spectrum[0] == 1.0f && spectrum[3] == 4.0f && spectrum[4] == -2.0f,
           "the signal comes back, and what stands behind it stays");
    expect(qsvgDFTFwd_RToPack_2_64f(wide, wide, qsvScaleNone) == qsvStatusOk && wide[0] == 3.0 &&
               wide[1] == -1.0 && wide[2] == 4.0,
           "real length 2 in double precision");
    expect(qsvgDFTInv_PermToR_64f(wide, wide, 1, qsvScaleNone) == qsvStatusBadLength,
           "real length 1");
    expect(qsvgHartley_2_64f(wide, wide, qsvScaleInvByN) == qsvStatusOk && wide[0] == 1.0 &&
               wide[1] == 2.0,
           "the Hartley transform of length 2");
    expect(qsvgHartley_32f(signal, NULL, 4, qsvScaleNone) == qsvStatusNullPointer,
           "null destination");

    expect(qsvStatusOk == 0 && qsvStatusBadPlan == -5 && qsvStatusBadLength == -6 &&
               qsvStatusNullPointer == -8 && qsvStatusBadFlag == -16,
           "status values");
    expect(qsvScaleFwdByN == 1 && qsvScaleInvByN == 2 && qsvScaleBySqrtN == 4 && qsvScaleNone == 8,
           "flag values");
    expect(sizeof(Real32) == 4 && sizeof(Real64) == 8 && sizeof(Complex32) == 8 &&
               sizeof(Complex64) == 16,
           "element sizes");
    expect(sizeof(LibraryVersion) == kSizeOfVersionRecord, "size of the version record");
    expect(version->majorVersion == 6 && memcmp(version->targetCode, kTargetCode, 4) == 0,
           "version record");

    batches_of_pairs_give_their_sums();
    batches_of_complex_pairs_go_there_and_back();

    printf("%s, %d failures\n", version->versionText, failures);
    return failures == 0 ? 0 : 1;
}
