# `cpack` in the build folder makes Debian packages for i386: the library, and what it is built with.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qsvgen)
set(CPACK_PACKAGE_VENDOR "The qsvgen authors")
set(QSVG_PACKAGE_CONTACT "The qsvgen authors <qsvgen@localhost>"
    CACHE STRING "Who answers for the Debian packages: Name <address>")
set(CPACK_PACKAGE_CONTACT ${QSVG_PACKAGE_CONTACT})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# A new soname is a new package, so that both may be installed.
set(runtime_package libqsvgent7-6.1)
set(development_package libqsvgent7-dev)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "discrete transforms of small fixed sizes
One kernel for each length of the complex and the real DFT, the Hartley and
the Walsh-Hadamard transform, and plans of the DCT-IV, in single and double
precision with SSE2. The platform core library is an open stand-in.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# Where the core library is found, whose own package this is.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/package/triggers ${PROJECT_BINARY_DIR}/package/shlibs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_package} (= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "discrete transforms of small fixed sizes, development files
The header, and what compilers, pkg-config and CMake need to build programs
with the library.")

file(WRITE ${PROJECT_BINARY_DIR}/package/triggers "activate-noawait ldconfig\n")
file(WRITE ${PROJECT_BINARY_DIR}/package/shlibs
     "libqsvgent7 6.1 ${runtime_package}\nlibqsvcore 6.1 ${runtime_package}\n")
configure_file(cmake/changelog.in ${PROJECT_BINARY_DIR}/package/changelog @ONLY)
execute_process(COMMAND gzip -9 --no-name --keep --force ${PROJECT_BINARY_DIR}/package/changelog
                        COMMAND_ERROR_IS_FATAL ANY)
foreach(component runtime development)
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
file(WRITE ${PROJECT_BINARY_DIR}/package/overrides
     "# Sines and cosines are all that it takes from outside, besides the core library.\n"
     "${runtime_package}: library-not-linked-against-libc *libqsvgent7.so.6.1*\n")
install(
    FILES ${PROJECT_BINARY_DIR}/package/overrides
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides
    RENAME ${runtime_package}
    COMPONENT runtime
    EXCLUDE_FROM_ALL)
include(CPack)
