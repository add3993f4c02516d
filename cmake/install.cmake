# What `cmake --install` puts where: the library and what its users need, and nothing else.

# Beside the libraries of other targets in the same prefix, where the linker looks for it.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR)
    set(CMAKE_INSTALL_LIBDIR lib/${QSVG_MULTIARCH} CACHE PATH "Directory of libraries below the prefix")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

if(QSVG_HAS_CORE_LIBRARY)
    install(
        TARGETS qsvcore
        EXPORT qsvgen
        LIBRARY COMPONENT runtime
                # Nobody links to it but the library.
                NAMELINK_SKIP)
endif()
install(
    TARGETS qsvgen
    EXPORT qsvgen
    LIBRARY COMPONENT runtime
            NAMELINK_COMPONENT development)
# Programs are linked with the baseline alone; the loader looks for these beside it.
foreach(level IN LISTS QSVG_LEVELS_ABOVE)
    install(
        TARGETS qsvgen_${level}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/glibc-hwcaps/${level}
                COMPONENT runtime
                NAMELINK_SKIP)
endforeach()
install(
    CODE "file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:qsvgen>\")"
    COMPONENT runtime)
# The same for all targets.
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/include/
    TYPE INCLUDE
    COMPONENT common
    FILES_MATCHING
    PATTERN "*.h"
    PATTERN "*.hpp")
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE TYPE DOC COMPONENT licence)

set(places ${PROJECT_BINARY_DIR}/install)
set(cmake_package ${CMAKE_INSTALL_LIBDIR}/cmake/qsvgen)
install(
    EXPORT qsvgen
    NAMESPACE qsvgen::
    FILE qsvgenTargets.cmake
    DESTINATION ${cmake_package}
    COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/qsvgenConfig.cmake.in
                              ${places}/qsvgenConfig.cmake INSTALL_DESTINATION ${cmake_package})
# Refuses projects whose pointers are of another size, too.
write_basic_package_version_file(${places}/qsvgenConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(
    FILES ${places}/qsvgenConfig.cmake ${places}/qsvgenConfigVersion.cmake
    DESTINATION ${cmake_package}
    COMPONENT development)

# Found whatever the mode of a project is: goes on to the package of that mode.
set(any_mode ${CMAKE_INSTALL_DATAROOTDIR}/cmake/qsvgen)
block()
    # The file names the mode, whose check it leaves out: it is to be the same bytes from all builds.
    set(CMAKE_SIZEOF_VOID_P "")
    write_basic_package_version_file(${places}/any_mode/qsvgenConfigVersion.cmake
                                     COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
endblock()
install(
    FILES ${PROJECT_SOURCE_DIR}/cmake/any_mode/qsvgenConfig.cmake
          ${places}/any_mode/qsvgenConfigVersion.cmake
    DESTINATION ${any_mode}
    COMPONENT common)

# Relative to itself, so that an installation may be moved.
file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PREFIX_FROM_PC "${PREFIX_FROM_PC}")
if(QSVG_HAS_CORE_LIBRARY)
    # Where linkers find what the library needs.
    set(PC_RPATH_LINK "-Wl,-rpath-link,\${libdir} ")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/qsvgen.pc.in ${places}/qsvgen.pc @ONLY)
install(
    FILES ${places}/qsvgen.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
