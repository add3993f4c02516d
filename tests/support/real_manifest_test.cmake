# The kernels of real elements are those of the manifest under version control.
#
# cmake -D DESCRIBE=<program> -D TARGET=<name> -D MANIFEST=<file> -D MADE=<scratch file>
#     [-D COUNT_STACK_ACCESSES=<program> -D LIBRARY=<file>] -P real_manifest_test.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${DESCRIBE} ${TARGET} --manifest ${MADE} COMMAND_ERROR_IS_FATAL ANY)
include(${CMAKE_CURRENT_LIST_DIR}/compare_manifest.cmake)
