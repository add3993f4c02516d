# Found whatever the mode of a project is: goes on to the package for that mode, which stands beside this one.
set(_qsvgen_4 i386-linux-gnu libqsvgent7-dev:i386 -m64)
set(_qsvgen_8 x86_64-linux-gnu libqsvgen-dev:amd64 -m32)
set(qsvgen_FOUND FALSE)
if(NOT CMAKE_SIZEOF_VOID_P)
    set(qsvgen_NOT_FOUND_MESSAGE
        "which library a project needs depends on its mode: enable C or C++ before it looks for qsvgen")
    return()
endif()
list(GET _qsvgen_${CMAKE_SIZEOF_VOID_P} 0 _qsvgen_multiarch)
set(_qsvgen_config ${CMAKE_CURRENT_LIST_DIR}/../../../lib/${_qsvgen_multiarch}/cmake/qsvgen/qsvgenConfig.cmake)
if(NOT EXISTS ${_qsvgen_config})
    list(GET _qsvgen_${CMAKE_SIZEOF_VOID_P} 1 _qsvgen_package)
    list(GET _qsvgen_${CMAKE_SIZEOF_VOID_P} 2 _qsvgen_other_mode)
    math(EXPR _qsvgen_bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    string(CONCAT qsvgen_NOT_FOUND_MESSAGE
           "qsvgen is installed here, but not for programs of ${_qsvgen_bits} bits, as this project builds "
           "them: install its development files for ${_qsvgen_multiarch} (Debian package "
           "${_qsvgen_package}), or build for the other mode, with ${_qsvgen_other_mode} in CMAKE_C_FLAGS "
           "and CMAKE_CXX_FLAGS")
    return()
endif()
unset(qsvgen_FOUND)
include(${_qsvgen_config})
