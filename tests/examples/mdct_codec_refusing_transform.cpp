/** @file @brief A DCT-IV that refuses after a while: stands before the library's own. */

#include <dlfcn.h>
#include <qsvgen.h>

QsvStatus qsvgDCT4_32f(const Real32* src, Real32* dst, QsvDCT4Plan_32f* plan) {
    static auto* const transform =
        reinterpret_cast<decltype(&qsvgDCT4_32f)>(dlsym(RTLD_NEXT, "qsvgDCT4_32f"));
    static int calls = 0;
    return ++calls > 3 ? qsvStatusBadPlan : transform(src, dst, plan);
}
