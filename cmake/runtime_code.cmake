# Options of code that becomes part of the library, as against code that runs during the build.

add_library(runtime_code INTERFACE)
target_compile_features(runtime_code INTERFACE cxx_std_20)
target_include_directories(runtime_code INTERFACE ${PROJECT_SOURCE_DIR}/library
                                                  ${PROJECT_SOURCE_DIR}/include)
target_compile_options(
    runtime_code
    INTERFACE -fPIC
              -fvisibility=hidden
              -fno-exceptions
              -fno-rtti
              -Wall
              -Wextra
              # Each sum and product is an operation of its own, scalar code stays scalar, and the
              # order of the kernel compiler stands.
              $<$<CXX_COMPILER_ID:GNU>:-fno-tree-vectorize;-fno-tree-slp-vectorize;-fno-schedule-insns>
              # Five percent off the time of a kernel on eight registers, one on sixteen, measured over all
              # lengths: GCC's allocator copies vectors needlessly.
              $<$<CXX_COMPILER_ID:GNU>:-frename-registers;-flive-range-shrinkage>
              $<$<CXX_COMPILER_ID:Clang>:-fno-vectorize;-fno-slp-vectorize>
              ${QSVG_RUNTIME_OPTIONS}
              # Half vectors are moved at any address, which the processor allows.
              -fno-sanitize=alignment)
if(NOT QSVG_HAS_CORE_LIBRARY)
    # Its functions are the library's own, and hidden.
    target_compile_definitions(runtime_code INTERFACE QSVCORE_IS_INSIDE)
endif()
# Calls in place of instructions written out: kernels are long, and mostly loads and stores.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_FLAGS MATCHES "sanitize")
    target_compile_options(
        runtime_code INTERFACE "SHELL:--param asan-instrumentation-with-call-threshold=0")
endif()

# Kernels that work on one value at a time; linked behind runtime_code, whose options it takes back.
add_library(scalar_code INTERFACE)
target_compile_options(scalar_code INTERFACE ${QSVG_SCALAR_OPTIONS})

# A dispatcher jumps straight to its kernels: without a procedure linkage table the linker can bind
# the jumps inside the library.
function(dispatches_directly)
    set_source_files_properties(${ARGV} PROPERTIES COMPILE_OPTIONS
                                                   "-fno-plt;${QSVG_DISPATCHER_OPTIONS}")
endfunction()
