/**
 * @file
 * @brief The header and the library as a C program sees them; compiled as C++ too.
 */

#include <stdio.h>
#include <string.h>

#include "qsvgen.h"

#if defined(__x86_64__)
enum { kSizeOfVersionRecord = 48 };
static const char kTargetCode[4] = {'x', '6', '4', '\0'};
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

    printf("%s, %d failures\n", version->versionText, failures);
    return failures == 0 ? 0 : 1;
}
