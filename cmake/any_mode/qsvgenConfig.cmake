# The package for the mode that the project is compiled in, which stands beside this one.
set(_qsvgen_4_multiarch i386-linux-gnu)
set(_qsvgen_8_multiarch x86_64-linux-gnu)
set(_qsvgen_here ${_qsvgen_${CMAKE_SIZEOF_VOID_P}_multiarch})
set(_qsvgen_config ${CMAKE_CURRENT_LIST_DIR}/../../../lib/${_qsvgen_here}/cmake/qsvgen/qsvgenConfig.cmake)
if(EXISTS ${_qsvgen_config})
    include(${_qsvgen_config})
else()
    math(EXPR _qsvgen_bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    set(qsvgen_FOUND FALSE)
    set(qsvgen_NOT_FOUND_MESSAGE
        "qsvgen is installed here, but not for programs of ${_qsvgen_bits} bits as this project builds them: "
        "install its development files for ${_qsvgen_here} (packages libqsvgen-dev of amd64 and "
        "libqsvgent7-dev of i386), or build in the other mode (-m32, -m64)")
    list(JOIN qsvgen_NOT_FOUND_MESSAGE "" qsvgen_NOT_FOUND_MESSAGE)
endif()
