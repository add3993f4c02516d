# The library of this target, and what a compiler must be told of it.
set(QSVG_MODE "32-bit x86 (-m32)")
set(QSVG_LIBRARY_NAME qsvgent7)
set(QSVG_SOVERSION 6.1)
set(QSVG_TARGET_CODE t7)
set(QSVG_VECTOR_BYTES 16)
set(QSVG_LEVELS_OF_TARGET "")
set(QSVG_MULTIARCH i386-linux-gnu)
set(QSVG_DEBIAN_ARCHITECTURE i386)
# A compiler of several modes takes it to compile for this one.
set(QSVG_MODE_OPTION -m32)
set(QSVG_OPTIONS -msse2 -mfpmath=sse -ffp-contract=off)
# Callers may come with a stack on a 4-byte boundary.
set(QSVG_RUNTIME_OPTIONS $<$<CXX_COMPILER_ID:GNU>:-mincoming-stack-boundary=2>
                         $<$<CXX_COMPILER_ID:Clang>:-mstackrealign>)
set(QSVG_SCALAR_OPTIONS "")
# A dispatcher leaves the stack as it finds it, since no kernel trusts it.
set(QSVG_DISPATCHER_OPTIONS $<$<CXX_COMPILER_ID:GNU>:-mpreferred-stack-boundary=2>
                            $<$<CXX_COMPILER_ID:Clang>:-mno-stackrealign$<SEMICOLON>-mstack-alignment=4>)
# Memory comes from a library of its own, which is present on the systems that this one is for.
set(QSVG_HAS_CORE_LIBRARY TRUE)
set(QSVG_PACKAGE_NOTE " The platform core library is an\nopen stand-in.")
