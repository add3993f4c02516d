# Describing the kernels twice gives the same bytes, and the manifest is the one under version
# control: a change of any kernel has to be seen and agreed to.
#
# cmake -D DESCRIBE=<program> -D MANIFEST=<file> -D FOLDER=<scratch folder>
#     [-D COUNT_STACK_ACCESSES=<program> -D LIBRARY=<file>] -P manifest_test.cmake
#
# The last column is of the machine code; it is compared where a library is named, which must come
# from the compiler that the manifest was written with.

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

set(remedy "If the change is meant, write the manifest anew by scripts/manifest")
if(NOT EXISTS ${MANIFEST})
    message(FATAL_ERROR "There is no ${MANIFEST}.\n${remedy}")
endif()
file(STRINGS ${MANIFEST} checked_in)
file(STRINGS ${FOLDER}/first/manifest.csv made)
set(described ${checked_in})
list(TRANSFORM described REPLACE ",[^,]*$" "")
if(NOT described STREQUAL made)
    set(only_checked_in ${described})
    list(REMOVE_ITEM only_checked_in ${made})
    set(only_made ${made})
    list(REMOVE_ITEM only_made ${described})
    foreach(line IN LISTS only_checked_in)
        message("- ${line}")
    endforeach()
    foreach(line IN LISTS only_made)
        message("+ ${line}")
    endforeach()
    message(FATAL_ERROR "The kernels are not those of ${MANIFEST} (-), but others (+).\n${remedy}")
endif()

if(NOT LIBRARY)
    return()
endif()
execute_process(
    COMMAND ${COUNT_STACK_ACCESSES} ${LIBRARY}
    OUTPUT_VARIABLE counted
    COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" counted "${counted}")
list(POP_FRONT checked_in)
foreach(line IN LISTS checked_in)
    string(REGEX REPLACE "^([^,]*),.*,([0-9]+)$" "\\1,\\2" wanted "${line}")
    if(NOT wanted IN_LIST counted)
        message(SEND_ERROR "The machine code has another number of stack accesses than ${wanted}.\n"
                           "${remedy}")
    endif()
endforeach()
