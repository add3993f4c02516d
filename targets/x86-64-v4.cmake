# A level of x86-64 that the dynamic loader knows: processors with AVX-512.
set(QSVG_TARGET_CODE v4)
set(QSVG_VECTOR_BYTES 64)
# Whose machine code complex, real and Hartley kernels are, but for those recorded: most are no faster in twice the registers.
set(QSVG_SINGLES_OF x86-64-v3)
# AVX-512 brings fused operations with it, so that Clang cannot be told to leave them out; of its own accord it forms
# none. GCC 12 warns of its own intrinsics.
set(QSVG_LEVEL_OPTIONS -march=x86-64-v4 -mprefer-vector-width=512
                       $<$<CXX_COMPILER_ID:GNU>:-mno-fma;-Wno-uninitialized;-Wno-maybe-uninitialized>)
