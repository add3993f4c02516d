# Which target is built: that of the compiler's mode.

if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
    set(QSVG_TARGET ia32)
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    set(QSVG_TARGET x86-64)
else()
    message(FATAL_ERROR "qsvgen is for x86-64 and for 32-bit x86, not for ${CMAKE_SYSTEM_PROCESSOR}: configure "
                        "with a preset, e.g. cmake --preset x86-64-gcc, or with a compiler for one of them")
endif()
# Arguments of add_subdirectory's users may have made this the other mode than they meant.
message(STATUS "qsvgen for ${QSVG_TARGET}")
include(${PROJECT_SOURCE_DIR}/targets/${QSVG_TARGET}.cmake)
# The presets have set them; inside another project they are the library's own affair.
if(NOT PROJECT_IS_TOP_LEVEL)
    add_compile_options(${QSVG_OPTIONS})
endif()
