# Every transform gives the bits that are under version control.
#
# cmake -D PRINT=<program and its options> -D HASHES=<file> [-D LIBRARY=<file>] [-D LONGEST=<length>]
#       -P same_bits_test.cmake
#
# Of LIBRARY instead of the library that the program is linked to, where one is named; of DCT-IVs of no more
# than LONGEST points, where that is told.
cmake_minimum_required(VERSION 3.25)

set(ENV{LD_PRELOAD} "${LIBRARY}")
set(limit "")
if(LONGEST)
    set(limit --longest ${LONGEST})
endif()
execute_process(COMMAND ${PRINT} ${limit} OUTPUT_VARIABLE printed RESULT_VARIABLE status)
set(ENV{LD_PRELOAD} "")
if(status EQUAL 77)
    message(STATUS "${printed}")
    return()
endif()
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PRINT} ended with ${status}")
endif()
file(READ ${HASHES} promised)
if(LONGEST)
    message(STATUS "DCT-IVs of more than ${LONGEST} points are not looked at")
    string(REGEX MATCHALL "[^\n]+\n" lines "${promised}")
    set(promised "")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^qsvgDCT4_.*_of_([0-9]+) " OR CMAKE_MATCH_1 LESS_EQUAL LONGEST)
            string(APPEND promised "${line}")
        endif()
    endforeach()
endif()
if(printed STREQUAL promised)
    return()
endif()
string(REPLACE "\n" ";" printed "${printed}")
string(REPLACE "\n" ";" promised "${promised}")
set(missing ${promised})
list(REMOVE_ITEM missing ${printed})
set(new ${printed})
list(REMOVE_ITEM new ${promised})
foreach(line IN LISTS missing)
    message("- ${line}")
endforeach()
foreach(line IN LISTS new)
    message("+ ${line}")
endforeach()
# Beside the file and then in its place, so that nothing is lost where the program fails.
string(JOIN " " command ${PRINT})
message(FATAL_ERROR
    "The transforms' bits are not those promised (-), but others (+).\n"
    "The bits of every published kernel are frozen: a line with - is a fault of the change. Lines with + "
    "alone are of new transforms, whose bits this promises from now on:\n"
    "  ${command} >${HASHES}.new && mv ${HASHES}.new ${HASHES}")
