include(CMakePackageConfigHelpers)

# Programs and libraries find the libraries of their own installation, be it
# moved, and those that they were linked to elsewhere.
file(RELATIVE_PATH libraries_from_programs "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
set(CMAKE_INSTALL_RPATH "$ORIGIN" "$ORIGIN/${libraries_from_programs}")
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)

# vantry_package(PACKAGE TARGET NAMESPACE DESCRIPTION TEXT
#     HEADERS FOLDER HEADERS_TO FOLDER CFLAGS FLAG...):
# installs a library of this tree as a package of its own: the library with
# the headers below a folder, CMake files for find_package(PACKAGE), made with
# cmake/PACKAGEConfig.cmake.in, and PACKAGE.pc. CFLAGS are what the latter
# tells the compiler.
function(vantry_package package target namespace)
    cmake_parse_arguments(PARSE_ARGV 3 arg "" "DESCRIPTION;HEADERS;HEADERS_TO" "CFLAGS")
    set(cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/${package}")
    set(pc_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

    install(TARGETS "${target}" EXPORT "${package}Targets" LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(DIRECTORY "${arg_HEADERS}/" DESTINATION "${arg_HEADERS_TO}" FILES_MATCHING PATTERN "*.h")

    install(EXPORT "${package}Targets" NAMESPACE "${namespace}::" DESTINATION "${cmake_folder}")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/${package}Config.cmake.in"
        "${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake" INSTALL_DESTINATION "${cmake_folder}")
    write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake" DESTINATION "${cmake_folder}")

    string(REGEX REPLACE "[^/]+" ".." prefix_from_pc "${pc_folder}")
    list(JOIN arg_CFLAGS " " cflags)
    configure_file("${PROJECT_SOURCE_DIR}/cmake/package.pc.in" "${CMAKE_CURRENT_BINARY_DIR}/${package}.pc" @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${package}.pc" DESTINATION "${pc_folder}")
endfunction()
