/* Spectrum of three real points in the Perm layout, which is that of Pack for odd lengths. */
#include <qsvgen.h>
#include <stdio.h>

int main(void) {
    const Real32 x[3] = {2, 1, 1};
    Real32 y[3];
    int k;
    if (qsvgDFTFwd_RToPerm_32f(x, y, 3, qsvScaleNone) != qsvStatusOk) return 1;
    for (k = 0; k < 3; ++k) printf("%g\n", y[k]);
    return 0;
}
