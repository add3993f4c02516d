# Describing the kernels twice gives the same bytes, and the manifest is the one under version
# control: a change of any kernel has to be seen and agreed to.
#
# cmake -D DESCRIBE=<program> -D MANIFEST=<file> -D FOLDER=<scratch folder>
#     [-D COUNT_STACK_ACCESSES=<program> -D LIBRARY=<file>] -P manifest_test.cmake

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
set(failed FALSE)

foreach(run first second)
    file(MAKE_DIRECTORY ${FOLDER}/${run})
    execute_process(
        COMMAND ${DESCRIBE} ${FOLDER}/${run}/sources ${FOLDER}/${run}/manifest.csv
        RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${DESCRIBE} ended with ${status}")
    endif()
    file(GLOB_RECURSE ${run}_files RELATIVE ${FOLDER}/${run} ${FOLDER}/${run}/*)
endforeach()

# For each of two element types and two directions a kernel of each of 63 lengths and a dispatcher;
# the manifest.
list(LENGTH first_files count)
if(NOT count EQUAL 257)
    message(SEND_ERROR "${count} files were written, not 257")
endif()
if(NOT first_files STREQUAL second_files)
    message(SEND_ERROR "The second run wrote other files than the first")
endif()
foreach(file IN LISTS first_files)
    file(SHA256 ${FOLDER}/first/${file} first_hash)
    file(SHA256 ${FOLDER}/second/${file} second_hash)
    if(NOT first_hash STREQUAL second_hash)
        message(SEND_ERROR "${file} differs between two runs")
    endif()
endforeach()

set(MADE ${FOLDER}/first/manifest.csv)
include(${CMAKE_CURRENT_LIST_DIR}/../../support/compare_manifest.cmake)
