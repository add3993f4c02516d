# Describing the kernels again gives the bytes that the build was made of, and the manifest is the one under
# version control: a change of any kernel has to be seen and agreed to.
#
# cmake -D DESCRIBE=<program> -D TARGET=<name> -D GENERATED=<folder> -D MANIFEST=<file> -D FOLDER=<scratch folder>
#     [-D COUNT_STACK_ACCESSES=<program> -D LIBRARY=<file>] -P manifest_test.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
set(failed FALSE)

execute_process(COMMAND ${DESCRIBE} ${TARGET} ${FOLDER}/sources COMMAND_ERROR_IS_FATAL ANY)
file(GLOB built RELATIVE ${GENERATED} ${GENERATED}/*)
file(GLOB again RELATIVE ${FOLDER}/sources ${FOLDER}/sources/*)
if(NOT built STREQUAL again OR NOT built)
    message(SEND_ERROR "The build has other files than are written now")
endif()
foreach(file IN LISTS again)
    file(SHA256 ${GENERATED}/${file} built_hash)
    file(SHA256 ${FOLDER}/sources/${file} hash)
    if(NOT built_hash STREQUAL hash)
        message(SEND_ERROR "${file} differs between two runs")
    endif()
endforeach()

set(MADE ${FOLDER}/manifest.csv)
execute_process(COMMAND ${DESCRIBE} ${TARGET} --manifest ${MADE} COMMAND_ERROR_IS_FATAL ANY)
include(${CMAKE_CURRENT_LIST_DIR}/../../support/compare_manifest.cmake)
