# Describing the kernels twice gives the same bytes, and the manifest is the one under version
# control: a change of any kernel has to be seen and agreed to.
#
# cmake -D DESCRIBE=<program> -D MANIFEST=<file> -D FOLDER=<scratch folder> -P manifest_test.cmake

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

# A kernel for each of 63 lengths and two directions, a dispatcher for each direction, the manifest.
list(LENGTH first_files count)
if(NOT count EQUAL 129)
    message(SEND_ERROR "${count} files were written, not 129")
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

set(remedy "If the change is meant, regenerate the manifest with\n  build/gcc/bin/describe_dft_complex \
build/gcc/generated/dft_complex dft_complex/manifest.csv")
if(NOT EXISTS ${MANIFEST})
    message(FATAL_ERROR "There is no ${MANIFEST}.\n${remedy}")
endif()
file(SHA256 ${MANIFEST} checked_in_hash)
file(SHA256 ${FOLDER}/first/manifest.csv hash)
if(NOT checked_in_hash STREQUAL hash)
    file(STRINGS ${MANIFEST} checked_in)
    file(STRINGS ${FOLDER}/first/manifest.csv made)
    set(only_checked_in ${checked_in})
    list(REMOVE_ITEM only_checked_in ${made})
    set(only_made ${made})
    list(REMOVE_ITEM only_made ${checked_in})
    foreach(line IN LISTS only_checked_in)
        message("- ${line}")
    endforeach()
    foreach(line IN LISTS only_made)
        message("+ ${line}")
    endforeach()
    message(FATAL_ERROR "The kernels are not those of ${MANIFEST} (-), but others (+).\n${remedy}")
endif()
