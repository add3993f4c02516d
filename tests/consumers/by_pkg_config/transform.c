/* Complex DFT of four points. */
#include <qsvgen.h>
#include <stdio.h>

int main(void) {
    const Complex32 x[4] = {{1, 0}, {2, 0}, {3, 0}, {4, 0}};
    Complex32 y[4];
    int k;
    if (qsvgDFTFwd_CToC_32fc(x, y, 4, qsvScaleNone) != qsvStatusOk) return 1;
    for (k = 0; k < 4; ++k) printf("%g %g\n", y[k].re, y[k].im);
    return 0;
}
