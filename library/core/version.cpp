#include "qsvgen.h"

static_assert(sizeof(LibraryVersion) == (sizeof(void*) == 4 ? 32 : 48),
              "callers rely on the record's layout");

extern "C" {
// The numbers and the text name different builds; callers compare both, so neither may change.
static const LibraryVersion s_libVer = {
    6, 1, 137, 336, QSVG_TARGET_CODE, QSVG_SONAME, "6.1 build 137.56", "Mar 17 2010"};

const LibraryVersion* qsvgenGetLibVersion() {
    return &s_libVer;
}
}
