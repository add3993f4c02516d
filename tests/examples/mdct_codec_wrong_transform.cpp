/** @file @brief A DCT-IV with one wrong output: stands before the library's own. */

#include <dlfcn.h>
#include <qsvgen.h>

QsvStatus qsvgDCT4_32f(const Real32* src, Real32* dst, QsvDCT4Plan_32f* plan) {
    static auto* const transform =
        reinterpret_cast<decltype(&qsvgDCT4_32f)>(dlsym(RTLD_NEXT, "qsvgDCT4_32f"));
    const QsvStatus status = transform(src, dst, plan);
    if (status == qsvStatusOk) dst[5] += 0.01F;
    return status;
}
