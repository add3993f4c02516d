# Compares the manifest MANIFEST, which is under version control, with MADE, which lacks the last
# column. That one is of the machine code; it is compared where a LIBRARY is named, which must come
# from the compiler that the manifest was written with, by what COUNT_STACK_ACCESSES prints.

set(remedy
    "Frozen are the bits of every published kernel (tests/same_bits/hashes.txt), and what tables of "
    "required values hold. Where these stay as they are and the change is meant, write the manifest "
    "anew by scripts/manifest")
list(JOIN remedy "" remedy)
if(NOT EXISTS ${MANIFEST})
    message(FATAL_ERROR "There is no ${MANIFEST}.\n${remedy}")
endif()
file(STRINGS ${MANIFEST} checked_in)
file(STRINGS ${MADE} made)
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
