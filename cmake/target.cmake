# Which target is built: that of the compiler's mode.

# 64-bit x86 has short pointers by another calling convention, x32, which is neither of its two modes.
if(CMAKE_SIZEOF_VOID_P EQUAL 4
   AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$"
   AND NOT CMAKE_CXX_COMPILER_ABI STREQUAL "ELF X32")
    set(QSVG_TARGET ia32)
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    set(QSVG_TARGET x86-64)
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8
       AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64|ARM64)$"
       AND CMAKE_CXX_BYTE_ORDER STREQUAL "LITTLE_ENDIAN")
    set(QSVG_TARGET aarch64)
else()
    math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    message(FATAL_ERROR "qsvgen is for x86-64, for 32-bit x86 and for little-endian AArch64 of 64 bits, not for "
                        "${CMAKE_SYSTEM_PROCESSOR}, ${bits} bits, ${CMAKE_CXX_BYTE_ORDER}, "
                        "${CMAKE_CXX_COMPILER_ABI}: configure with a preset, e.g. cmake --preset x86-64-gcc, or with "
                        "a compiler for one of them")
endif()
# Arguments of add_subdirectory's users may have made this the other mode than they meant.
message(STATUS "qsvgen for ${QSVG_TARGET}")
include(${PROJECT_SOURCE_DIR}/targets/${QSVG_TARGET}.cmake)
# Programs of this target write its sources, where no other build's do.
if(CMAKE_CROSSCOMPILING AND NOT QSVG_DESCRIBED_BY AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    message(FATAL_ERROR "qsvgen for ${QSVG_TARGET} is to be built on another machine: name the folder of a build for this "
                        "one, whose programs write the sources, in QSVG_DESCRIBED_BY, or what runs programs of the "
                        "target in CMAKE_CROSSCOMPILING_EMULATOR")
endif()
# The presets have set them; inside another project they are the library's own affair.
if(NOT PROJECT_IS_TOP_LEVEL)
    add_compile_options(${QSVG_OPTIONS})
endif()
