#include "qsvgen.h"

static_assert(sizeof(LibraryVersion) == 32, "callers rely on the record's 32-bit layout");

extern "C" {
// The numbers and the text name different builds; callers compare both, so neither may change.
static const LibraryVersion s_libVer = {6,
                                        1,
                                        137,
                                        336,
                                        {'t', '7', '\0', '\0'},
                                        "libqsvgent7.so.6.1",
                                        "6.1 build 137.56",
                                        "Mar 17 2010"};

const LibraryVersion* qsvgenGetLibVersion() {
    return &s_libVer;
}
}
