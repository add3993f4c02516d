# Toolchain file: builds for AArch64, on another machine by Debian's cross compilers, or by those that are named, and runs
# programs of it there by qemu.
if(NOT CMAKE_HOST_SYSTEM_PROCESSOR STREQUAL "aarch64")
    set(CMAKE_SYSTEM_NAME Linux)
    set(CMAKE_SYSTEM_PROCESSOR aarch64)
    if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
        set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
    endif()
endif()
if(NOT CMAKE_C_COMPILER)
    set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
endif()
if(NOT CMAKE_CXX_COMPILER)
    set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
endif()
# Of use to those that compile for several targets, as Clang does.
set(CMAKE_C_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
