# Options of code that runs during the build, in tests and in examples.

# Sources are generated alike by all builds, so that one may take another's programs for it. What runs
# during a build is tested in that other one, then.
set(QSVG_DESCRIBED_BY "" CACHE PATH "Build folder whose programs write the generated sources; if empty, this")

add_library(build_time_code INTERFACE)
target_compile_features(build_time_code INTERFACE cxx_std_20)
target_compile_options(
    build_time_code INTERFACE # Built more often than run, where all time goes into libraries.
                              $<IF:$<AND:$<BOOL:${SANITIZED}>,$<BOOL:${QSVG_DESCRIBED_BY}>>,-O0,-O1> -Wall -Wextra
                              # GCC 12 sees overlaps and overflows in the joining of short strings.
                              $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>)

# Most of what describes kernels includes Boost's multiple precision, which takes seconds to read.
function(reads_exact_constants_once)
    foreach(target IN LISTS ARGV)
        target_precompile_headers(${target} REUSE_FROM kernelgen)
    endforeach()
endfunction()

# The lengths that a table has rows of, "{15, ..", so that they stand nowhere else. An edit of the
# table configures anew.
function(lengths_of_table table result)
    get_filename_component(table ${table} ABSOLUTE)
    file(STRINGS ${table} rows REGEX "^ *{[0-9]+, [a-zA-Z{]")
    set(lengths "")
    foreach(row IN LISTS rows)
        string(REGEX MATCH "[0-9]+" length "${row}")
        list(APPEND lengths ${length})
    endforeach()
    set(${result} ${lengths} PARENT_SCOPE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
endfunction()

# recorded_lengths(table result [kind]): the lengths that a table of tunings has rows of, "{15, .." or "{kind, 15, ..".
function(recorded_lengths table result)
    get_filename_component(table ${table} ABSOLUTE)
    set(kind "")
    if(ARGC GREATER 2)
        set(kind "${ARGV2}, ")
    endif()
    file(STRINGS ${table} rows REGEX "^{${kind}[0-9]+, ")
    set(lengths "")
    foreach(row IN LISTS rows)
        string(REGEX REPLACE "^{${kind}([0-9]+), .*" "\\1" length "${row}")
        list(APPEND lengths ${length})
    endforeach()
    set(${result} ${lengths} PARENT_SCOPE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
endfunction()

# Where a family's sources for the target are written.
set(QSVG_GENERATED ${PROJECT_BINARY_DIR}/generated/${QSVG_TARGET})

# writes_generated_sources(program result): what the command of a generated source runs and depends on.
function(writes_generated_sources program result)
    if(QSVG_DESCRIBED_BY)
        set(${result} ${QSVG_DESCRIBED_BY}/bin/${program} PARENT_SCOPE)
    else()
        set(${result} ${program} PARENT_SCOPE)
    endif()
endfunction()
