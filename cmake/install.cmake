# What `cmake --install` puts where: the library and what its users need, and nothing else.

# Beside the 64-bit libraries of the same prefix, where the linker looks for it.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR)
    set(CMAKE_INSTALL_LIBDIR lib/i386-linux-gnu CACHE PATH "Directory of libraries below the prefix")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(
    TARGETS qsvcore
    EXPORT qsvgen
    LIBRARY COMPONENT runtime
            # Nobody links to it but the library.
            NAMELINK_SKIP)
install(
    TARGETS qsvgent7
    EXPORT qsvgen
    LIBRARY COMPONENT runtime
            NAMELINK_COMPONENT development)
install(
    CODE "file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:qsvgent7>\")"
    COMPONENT runtime)
install(FILES ${PROJECT_SOURCE_DIR}/include/qsvgen.h TYPE INCLUDE COMPONENT development)
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
# Refuses projects whose pointers are not of 32 bits, too.
write_basic_package_version_file(${places}/qsvgenConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(
    FILES ${places}/qsvgenConfig.cmake ${places}/qsvgenConfigVersion.cmake
    DESTINATION ${cmake_package}
    COMPONENT development)

# Relative to itself, so that an installation may be moved.
file(RELATIVE_PATH PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PREFIX_FROM_PC "${PREFIX_FROM_PC}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/qsvgen.pc.in ${places}/qsvgen.pc @ONLY)
install(
    FILES ${places}/qsvgen.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
