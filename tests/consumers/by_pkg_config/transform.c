/* Complex DFTs of four points each, the columns of an array in one call. */
#include <qsvgen_batch.h>
#include <stdio.h>

enum { kLength = 4, kColumns = 2 };

int main(void) {
    const Complex32 x[kLength * kColumns] = {{1, 0}, {5, 0}, {2, 0}, {5, 0},
                                             {3, 0}, {5, 0}, {4, 0}, {5, 0}};
    Complex32 y[kLength * kColumns];
    int k;
    if (qsvgBatchDFTFwd_CToC_32fc(x, kColumns, 1, y, kColumns, 1, kLength, kColumns,
                                  qsvScaleNone) != qsvStatusOk)
        return 1;
    for (k = 0; k < kLength; ++k) printf("%g %g\n", y[k * kColumns].re, y[k * kColumns].im);
    return 0;
}
