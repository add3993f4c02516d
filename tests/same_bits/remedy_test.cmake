# The command that a failure of same_bits_test names can be pasted, and adds what is new.
#
# cmake -D PRINT=<program and its options> -D HASHES=<file> -D FOLDER=<scratch folder> -P remedy_test.cmake
cmake_minimum_required(VERSION 3.25)

file(READ ${HASHES} promised)
file(REMOVE_RECURSE ${FOLDER})
set(incomplete ${FOLDER}/hashes.txt)
string(REGEX REPLACE "^[^\n]*\n" "" without_first "${promised}")
file(WRITE ${incomplete} "${without_first}")
execute_process(
    COMMAND ${CMAKE_COMMAND} "-DPRINT=${PRINT}" -DHASHES=${incomplete}
            -P ${CMAKE_CURRENT_LIST_DIR}/same_bits_test.cmake
    RESULT_VARIABLE status
    ERROR_VARIABLE failure)
if(status EQUAL 0)
    message(FATAL_ERROR "A missing line is no failure")
endif()
if(NOT failure MATCHES "\n *([^\n]* >[^\n]*hashes.txt)")
    message(FATAL_ERROR "No command is named in:\n${failure}")
endif()
execute_process(COMMAND sh -c "${CMAKE_MATCH_1}" COMMAND_ERROR_IS_FATAL ANY)
file(READ ${incomplete} remedied)
if(NOT remedied STREQUAL promised)
    message(FATAL_ERROR "After '${CMAKE_MATCH_1}' the file holds:\n${remedied}")
endif()
