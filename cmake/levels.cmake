# Levels of a target: the library is built once for each, and the dynamic loader picks the highest that the processor
# has. The target's own is the baseline.

set(levels "")
if(PROJECT_IS_TOP_LEVEL AND NOT SANITIZED)
    set(levels ${QSVG_LEVELS_OF_TARGET})
endif()
set(QSVG_LEVELS_ABOVE "${levels}" CACHE STRING "Levels beside the baseline, each a library of its own")
set(QSVG_LEVELS baseline ${QSVG_LEVELS_ABOVE})

# level_suffix(level result): behind the names of what is built once for each level; nothing for the baseline.
function(level_suffix level result)
    if(level STREQUAL "baseline")
        set(${result} "" PARENT_SCOPE)
    else()
        set(${result} _${level} PARENT_SCOPE)
    endif()
endfunction()

# level_code, level_code_x86-64-v3, ..: what run-time code of a level is compiled with.
foreach(level IN LISTS QSVG_LEVELS)
    block()
        set(QSVG_LEVEL_OPTIONS "")
        set(QSVG_SINGLES_OF baseline)
        set(recorded ${QSVG_TARGET})
        if(NOT level STREQUAL "baseline")
            set(recorded ${level})
            include(${PROJECT_SOURCE_DIR}/targets/${level}.cmake)
        endif()
        if(NOT QSVG_SINGLES_OF IN_LIST QSVG_LEVELS)
            message(FATAL_ERROR "Level ${level} has the complex, real and Hartley kernels of ${QSVG_SINGLES_OF}:"
                                " name that level, too, in QSVG_LEVELS_ABOVE.")
        endif()
        level_suffix(${level} suffix)
        level_suffix(${QSVG_SINGLES_OF} singles)
        set(QSVG_SINGLES${suffix} "${singles}" CACHE INTERNAL "Behind the names of what two levels share")
        add_library(level_code${suffix} INTERFACE)
        target_compile_options(level_code${suffix} INTERFACE ${QSVG_LEVEL_OPTIONS})
        target_compile_definitions(
            level_code${suffix} INTERFACE QSVG_VECTOR_BYTES=${QSVG_VECTOR_BYTES}
                                          QSVG_TARGET_CODE="${QSVG_TARGET_CODE}"
                                          QSVG_BATCH_SINGLY="batch/recorded/${recorded}.inc")
    endblock()
endforeach()

# Levels whose complex, real and Hartley kernels have machine code of their own. Families that fill the vectors of
# every level have kernels for each of QSVG_LEVELS.
set(QSVG_LEVELS_OF_SINGLES "")
foreach(level IN LISTS QSVG_LEVELS)
    level_suffix(${level} suffix)
    if(QSVG_SINGLES${suffix} STREQUAL suffix)
        list(APPEND QSVG_LEVELS_OF_SINGLES ${level})
    endif()
endforeach()

# target_of_level(level result): whose kernels a level has where its vectors are longer than the baseline's.
function(target_of_level level result)
    if(level STREQUAL "baseline")
        set(level ${QSVG_TARGET})
    endif()
    set(${result} ${level} PARENT_SCOPE)
endfunction()

# level_objects(name LEVELS level... SOURCES source... [LINK library...]): objects of the library for each of these
# levels, name, name_x86-64-v3, ..
function(level_objects name)
    cmake_parse_arguments(PARSE_ARGV 1 objects "" "" "LEVELS;SOURCES;LINK")
    foreach(level IN LISTS objects_LEVELS)
        level_suffix(${level} suffix)
        add_library(${name}${suffix} OBJECT ${objects_SOURCES})
        target_link_libraries(${name}${suffix} PRIVATE runtime_code level_code${suffix}
                                                       ${objects_LINK})
    endforeach()
endfunction()
