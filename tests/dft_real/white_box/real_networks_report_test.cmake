# docs/real_networks.md is what the report prints.
#
# cmake -D REPORT=<program> -D DOCUMENT=<file> -P real_networks_report_test.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${REPORT} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${DOCUMENT} document)
if(NOT printed STREQUAL document)
    message(FATAL_ERROR "${DOCUMENT} differs from what the networks cost now.\n"
                        "Write it anew: build/ia32-gcc/bin/report_real_networks >docs/real_networks.md")
endif()
