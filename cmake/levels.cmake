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

# Levels that compile all complex, real and Hartley kernels; of the others only what is recorded for them has machine
# code of their own. Families that fill the vectors of every level have kernels for each of QSVG_LEVELS.
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
# levels, name, name_x86-64-v3, ..; none where there are no sources.
function(level_objects name)
    cmake_parse_arguments(PARSE_ARGV 1 objects "" "" "LEVELS;SOURCES;LINK")
    if(NOT objects_SOURCES)
        return()
    endif()
    foreach(level IN LISTS objects_LEVELS)
        level_suffix(${level} suffix)
        add_library(${name}${suffix} OBJECT ${objects_SOURCES})
        target_link_libraries(${name}${suffix} PRIVATE runtime_code level_code${suffix}
                                                       ${objects_LINK})
    endforeach()
endfunction()

# Straight lines without a branch, whose accesses guard pages watch, give sanitizers little to find, and are most of what
# a build compiles.
set(QSVG_KERNELS_OF "" CACHE PATH "Build folder of the same target and compiler that the library's kernels are of; if empty, this")

# kernel_objects(name LEVELS level... SOURCES source... [LINK library...]): level_objects of kernels and of what chooses
# among them.
function(kernel_objects name)
    if(NOT QSVG_KERNELS_OF)
        level_objects(${name} ${ARGN})
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 objects "" "" "LEVELS;SOURCES;LINK")
    file(RELATIVE_PATH folder ${PROJECT_BINARY_DIR} ${CMAKE_CURRENT_BINARY_DIR})
    foreach(level IN LISTS objects_LEVELS)
        level_suffix(${level} suffix)
        set(compiled "")
        foreach(source IN LISTS objects_SOURCES)
            file(RELATIVE_PATH source ${CMAKE_CURRENT_BINARY_DIR} ${source})
            string(REPLACE "../" "__/" source ${source})
            set(object ${QSVG_KERNELS_OF}/${folder}/CMakeFiles/${name}${suffix}.dir/${source}.o)
            if(NOT EXISTS ${object})
                message(FATAL_ERROR "QSVG_KERNELS_OF, ${QSVG_KERNELS_OF}, has not compiled ${object}:"
                                    " build its target qsvgen first, or leave the option out.")
            endif()
            list(APPEND compiled ${object})
        endforeach()
        add_library(${name}${suffix} OBJECT IMPORTED GLOBAL)
        set_target_properties(${name}${suffix} PROPERTIES IMPORTED_OBJECTS "${compiled}")
    endforeach()
endfunction()

# kernels_of_part(family part level DESCRIBE program LENGTHS length... RECORDED folder [KIND kind]): how the build writes
# those kernels of a part, of fwd_ccs_32f for example, that a level has for itself, and what it compiles, which is
# appended to FAMILY_sources. RECORDED has the tables of levels, whose rows may begin with a kind.
function(kernels_of_part family part level)
    cmake_parse_arguments(PARSE_ARGV 3 part "" "DESCRIBE;RECORDED;KIND" "LENGTHS")
    target_of_level(${level} target)
    set(own ${part_LENGTHS})
    if(NOT level STREQUAL "baseline")
        string(REGEX MATCH "[^_]+$" element ${part})
        recorded_lengths(${part_RECORDED}/${target}/tuned_${element}.inc own ${part_KIND})
    endif()
    set(generated ${PROJECT_BINARY_DIR}/generated)
    set(written "")
    set(taken "")
    foreach(length IN LISTS part_LENGTHS)
        string(REGEX REPLACE "([^_]+)$" "${length}_\\1.cpp" file ${part})
        if(length IN_LIST own)
            list(APPEND written ${generated}/${target}/${family}/${file})
        elseif(level IN_LIST QSVG_LEVELS_OF_SINGLES)
            list(APPEND taken ${generated}/${QSVG_TARGET}/${family}/${file})
        endif()
    endforeach()
    set(dispatcher ${generated}/${QSVG_TARGET}/${family}/${part}.cpp)
    if(level STREQUAL "baseline")
        list(APPEND written ${dispatcher})
        dispatches_directly(${dispatcher})
    elseif(level IN_LIST QSVG_LEVELS_OF_SINGLES)
        list(APPEND taken ${dispatcher})
    endif()
    if(written)
        add_custom_command(
            OUTPUT ${written}
            COMMAND ${part_DESCRIBE} ${target} ${generated}/${target}/${family} ${part}
            DEPENDS ${part_DESCRIBE}
            COMMENT "Proving and writing the kernels ${part} of ${family} for ${target}"
            VERBATIM)
    endif()
    set(${family}_sources ${${family}_sources} ${written} ${taken} PARENT_SCOPE)
endfunction()

# level_kernels(family level [LINK library...]): objects of FAMILY_sources, FAMILY_kernels, FAMILY_kernels_x86-64-v3, ..
function(level_kernels family level)
    kernel_objects(${family}_kernels LEVELS ${level} SOURCES ${${family}_sources} ${ARGN})
    level_suffix(${level} suffix)
    # Intrinsics of long vectors take longer to read than most kernels to compile.
    if(NOT level STREQUAL "baseline" AND TARGET ${family}_kernels${suffix})
        target_precompile_headers(${family}_kernels${suffix} PRIVATE <immintrin.h>)
    endif()
endfunction()

# objects_of_kernels(family level result): those of the level, and else those that it shares with another one.
function(objects_of_kernels family level result)
    level_suffix(${level} suffix)
    set(shared ${QSVG_SINGLES${suffix}})
    set(objects $<TARGET_OBJECTS:${family}_kernels${shared}>)
    if(NOT shared STREQUAL suffix AND TARGET ${family}_kernels${suffix})
        get_target_property(sources ${family}_kernels${suffix} SOURCES)
        set(names "")
        foreach(source IN LISTS sources)
            cmake_path(GET source STEM name)
            list(APPEND names ${name})
        endforeach()
        list(JOIN names "|" names)
        set(objects "$<FILTER:${objects},EXCLUDE,/(${names})[.]cpp>"
                    $<TARGET_OBJECTS:${family}_kernels${suffix}>)
    endif()
    set(${result} ${objects} PARENT_SCOPE)
endfunction()
