/**
 * @file
 * @brief The header and the library as a C program sees them; compiled as C++ too.
 */

#include <stdio.h>

#include "qsvgen.h"

static int failures = 0;

static void expect(int condition, const char* what) {
    if (!condition) {
        printf("not so: %s\n", what);
        ++failures;
    }
}

int main(void) {
    const Complex32 x[4] = {{1.0f, 0.0f}, {2.0f, 0.0f}, {3.0f, 0.0f}, {4.0f, 0.0f}};
    Complex32 y[4] = {{0.0f, 0.0f}, {0.0f, 0.0f}, {0.0f, 0.0f}, {0.0f, 0.0f}};
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

    expect(qsvStatusOk == 0 && qsvStatusBadPlan == -5 && qsvStatusBadLength == -6 &&
               qsvStatusNullPointer == -8 && qsvStatusBadFlag == -16,
           "status values");
    expect(qsvScaleFwdByN == 1 && qsvScaleInvByN == 2 && qsvScaleBySqrtN == 4 && qsvScaleNone == 8,
           "flag values");
    expect(sizeof(Complex32) == 8 && sizeof(Complex64) == 16, "element sizes");
    expect(sizeof(LibraryVersion) == 32, "size of the version record");
    expect(version->majorVersion == 6 && version->targetCode[0] == 't', "version record");

    printf("%s, %d failures\n", version->versionText, failures);
    return failures == 0 ? 0 : 1;
}
