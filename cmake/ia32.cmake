# What the library demands of the compiler.

if(NOT CMAKE_SIZEOF_VOID_P EQUAL 4)
    if(PROJECT_IS_TOP_LEVEL)
        message(FATAL_ERROR "qsvgen is 32-bit x86: configure with a preset, e.g. cmake --preset ia32-gcc")
    endif()
    message(FATAL_ERROR "qsvgen is 32-bit x86, and so must be what it is built into: set "
                        "CMAKE_C_FLAGS and CMAKE_CXX_FLAGS to -m32 before the first project(), e.g. "
                        "by cmake -D CMAKE_C_FLAGS=-m32 -D CMAKE_CXX_FLAGS=-m32")
endif()
# The presets have set them; inside another project they are the library's own affair.
if(NOT PROJECT_IS_TOP_LEVEL)
    add_compile_options(-msse2 -mfpmath=sse -ffp-contract=off)
endif()
