# Bodies of the DCT-IV or of batches, or kernels of a level, are those of the manifest under version control.
#
# cmake -D DESCRIBE=<program> -D TARGET=<name> -D MANIFEST=<file> -D MADE=<scratch file> -P bodies_manifest_test.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${DESCRIBE} ${TARGET} --manifest ${MADE} COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${MANIFEST} checked_in)
file(STRINGS ${MADE} made)
if(NOT checked_in STREQUAL made)
    message(FATAL_ERROR "The bodies differ from ${MANIFEST}: compare it with ${MADE}.\n"
                        "Frozen are the bits of every published kernel (tests/same_bits/hashes.txt). Where these "
                        "stay as they are and the change is meant, write the manifest anew by scripts/manifest")
endif()
