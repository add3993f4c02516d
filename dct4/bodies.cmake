# Descriptions of the straight-line bodies, and the headers that the kernel compiler makes of them.
add_library(dct4_description STATIC bodies.cpp complex_values.cpp definitions.cpp kernel_source.cpp
                                    kernels.cpp odd_frequency.cpp orders.cpp)
target_link_libraries(dct4_description PRIVATE build_time_code)
target_link_libraries(dct4_description PUBLIC kernelgen)

add_executable(describe_dct4 describe_main.cpp)
target_link_libraries(describe_dct4 PRIVATE dct4_description build_time_code)

reads_exact_constants_once(dct4_description describe_dct4)

set(folder ${CMAKE_BINARY_DIR}/generated/dct4)
foreach(element 32f 64f)
    foreach(stem analysis synthesis dft inline)
        foreach(rule RANGE 1 6)
            if(rule LESS 6 OR stem MATCHES "sis$")
                list(APPEND bodies_${element} ${folder}/${element}/dct4_bodies/${stem}_${rule}.hpp)
            endif()
        endforeach()
    endforeach()
endforeach()
add_custom_command(
    OUTPUT ${bodies_32f} ${bodies_64f}
    COMMAND describe_dct4 ${folder}
    DEPENDS describe_dct4
    COMMENT "Proving and writing the bodies of the DCT-IV"
    VERBATIM)

# What runs a plan, each source once for each element type.
foreach(element 32f 64f)
    string(REGEX MATCH "^.." bits ${element})
    add_library(dct4_compute_${element} OBJECT recursion.cpp stage_a.cpp stage_b.cpp transform.cpp
                                               twiddled_dfts.cpp ${bodies_${element}})
    target_compile_definitions(dct4_compute_${element} PRIVATE QSVG_REAL_BITS=${bits})
    target_include_directories(dct4_compute_${element} PRIVATE ${folder}/${element})
    target_link_libraries(dct4_compute_${element} PRIVATE runtime_code)
    # GCC does not see that of a batch as many groups are read as were written.
    target_compile_options(dct4_compute_${element}
                           PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endforeach()
# Seven percent off the time from 1024 points on: bodies of hundreds of vectors gain nothing by it.
set_source_files_properties(
    recursion.cpp stage_a.cpp stage_b.cpp transform.cpp twiddled_dfts.cpp
    PROPERTIES COMPILE_OPTIONS "$<$<CXX_COMPILER_ID:GNU>:-fno-live-range-shrinkage>")
# Both need what one command makes.
add_custom_target(dct4_bodies DEPENDS ${bodies_32f} ${bodies_64f})
add_dependencies(dct4_compute_32f dct4_bodies)
add_dependencies(dct4_compute_64f dct4_bodies)
