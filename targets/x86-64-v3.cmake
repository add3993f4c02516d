# A level of x86-64 that the dynamic loader knows: processors with AVX2.
set(QSVG_TARGET_CODE v3)
set(QSVG_VECTOR_BYTES 32)
# Whose machine code complex, real and Hartley kernels are.
set(QSVG_SINGLES_OF x86-64-v3)
# Fused operations round once where the transforms' values are rounded twice.
set(QSVG_LEVEL_OPTIONS -march=x86-64-v3 -mno-fma)
