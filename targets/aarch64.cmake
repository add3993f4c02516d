# The library of this target, and what a compiler must be told of it.
set(QSVG_MODE "AArch64")
set(QSVG_LIBRARY_NAME qsvgen)
set(QSVG_SOVERSION 6)
set(QSVG_TARGET_CODE a64)
set(QSVG_VECTOR_BYTES 16)
set(QSVG_LEVELS_OF_TARGET "")
set(QSVG_MULTIARCH aarch64-linux-gnu)
set(QSVG_DEBIAN_ARCHITECTURE arm64)
# Compilers for it have no other mode.
set(QSVG_MODE_OPTION "")
# Its baseline has fused operations, which round once where the transforms' values are rounded twice.
set(QSVG_OPTIONS -ffp-contract=off)
set(QSVG_RUNTIME_OPTIONS "")
set(QSVG_SCALAR_OPTIONS "")
set(QSVG_DISPATCHER_OPTIONS "")
set(QSVG_HAS_CORE_LIBRARY FALSE)
set(QSVG_PACKAGE_NOTE "")
