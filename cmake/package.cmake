# `cpack` in the build folder makes Debian packages: the library, what it is built with, and of that what
# is the same for all targets, so that those of several may be installed.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qsvgen)
set(CPACK_PACKAGE_VENDOR "The qsvgen authors")
set(QSVG_PACKAGE_CONTACT "The qsvgen authors <qsvgen@localhost>"
    CACHE STRING "Who answers for the Debian packages: Name <address>")
set(CPACK_PACKAGE_CONTACT ${QSVG_PACKAGE_CONTACT})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(components runtime development common)
if(TARGET python_package)
    list(APPEND components python)
endif()
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${QSVG_DEBIAN_ARCHITECTURE})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# A new soname is a new package, so that both may be installed.
if(QSVG_SOVERSION VERSION_EQUAL PROJECT_VERSION)
    set(runtime_package lib${QSVG_LIBRARY_NAME}-${QSVG_SOVERSION})
else()
    set(runtime_package lib${QSVG_LIBRARY_NAME}${QSVG_SOVERSION})
endif()
set(development_package lib${QSVG_LIBRARY_NAME}-dev)
set(common_package qsvgen-common)
set(python_package python3-qsvgen)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
# Of several architectures, two of which have the same names for them, these may be installed beside each other; CPack
# has no word of its own for that field.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION "libs\nMulti-Arch: same")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "discrete transforms of small fixed sizes
One kernel for each length of the complex and the real DFT, the Hartley and
the Walsh-Hadamard transform, and plans of the DCT-IV, in single and double
precision, for ${QSVG_MODE}.${QSVG_PACKAGE_NOTE}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# Where the core library is found, whose own package this is.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/package/triggers ${PROJECT_BINARY_DIR}/package/shlibs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION "libdevel\nMulti-Arch: same")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}-1), ${common_package} (= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "discrete transforms of small fixed sizes, development files
What compilers, pkg-config and CMake need to build programs with the library,
but for the header.")
set(CPACK_DEBIAN_COMMON_PACKAGE_NAME ${common_package})
# For packages of another architecture as well.
set(CPACK_DEBIAN_COMMON_PACKAGE_SECTION "libdevel\nMulti-Arch: foreign")
set(CPACK_DEBIAN_COMMON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_COMMON_DESCRIPTION
    "discrete transforms of small fixed sizes, headers
The headers for C and C++, which are one for all targets, and what leads CMake to the
development files of the target that is built for.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME ${python_package})
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}-1), ${QSVG_PYTHON_DEPENDS}")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-scipy")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION
    "discrete transforms of small fixed sizes, of NumPy's arrays
Fourier, Hartley, Walsh-Hadamard and DCT-IV transforms along any axis of an
array with the conventions of scipy.fft, which they can stand in for.")
# Modules are compiled when they are installed, and what came of it is removed with them.
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/package/python/postinst
                                              ${PROJECT_BINARY_DIR}/package/python/prerm)
file(CONFIGURE OUTPUT package/python/postinst @ONLY CONTENT
     "#!/bin/sh\nset -e\nif command -v py3compile >/dev/null; then py3compile -p @python_package@; fi\n")
file(CONFIGURE OUTPUT package/python/prerm @ONLY CONTENT
     "#!/bin/sh\nset -e\nif command -v py3clean >/dev/null; then py3clean -p @python_package@; fi\n")

file(WRITE ${PROJECT_BINARY_DIR}/package/triggers "activate-noawait ldconfig\n")
file(WRITE ${PROJECT_BINARY_DIR}/package/shlibs
     "lib${QSVG_LIBRARY_NAME} ${QSVG_SOVERSION} ${runtime_package}\n")
if(QSVG_HAS_CORE_LIBRARY)
    file(APPEND ${PROJECT_BINARY_DIR}/package/shlibs "libqsvcore 6.1 ${runtime_package}\n")
endif()
configure_file(cmake/changelog.in ${PROJECT_BINARY_DIR}/package/changelog @ONLY)
execute_process(COMMAND gzip -9 --no-name --keep --force ${PROJECT_BINARY_DIR}/package/changelog
                        COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN LISTS components)
    set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/${${component}_package})
    install(
        FILES ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${documents}
        RENAME copyright
        COMPONENT ${component}
        # Of packages only.
        EXCLUDE_FROM_ALL)
    install(
        FILES ${PROJECT_BINARY_DIR}/package/changelog.gz
        DESTINATION ${documents}
        RENAME changelog.Debian.gz
        COMPONENT ${component}
        EXCLUDE_FROM_ALL)
endforeach()
if(QSVG_HAS_CORE_LIBRARY)
    file(WRITE ${PROJECT_BINARY_DIR}/package/overrides
         "# The core library is all that it takes from outside.\n"
         "${runtime_package}: library-not-linked-against-libc *lib${QSVG_LIBRARY_NAME}.so.6.1*\n")
    install(
        FILES ${PROJECT_BINARY_DIR}/package/overrides
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides
        RENAME ${runtime_package}
        COMPONENT runtime
        EXCLUDE_FROM_ALL)
endif()
include(CPack)
