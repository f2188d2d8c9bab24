# `cmake --install`: headers, the library (on Windows with its import library and the C++ run-time library), the CMake package
# VeTools with the function that makes string modules, vetools.pc. The command installs itself.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Programs that are added from here on find the library where it is installed.
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

set(VETOOLS_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/VeTools")

install(TARGETS vetools EXPORT VeToolsTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
)
install(FILES "${PROJECT_SOURCE_DIR}/vetools/unitmanager/ComUnit.idl"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vetools/unitmanager")
if(VETOOLS_COM_HEADER)
    install(FILES "${VETOOLS_COM_HEADER}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vetools/unitmanager")
endif()
if(WIN32)
    install(FILES ${VETOOLS_RUNTIME_DLLS} DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(EXPORT VeToolsTargets NAMESPACE VeTools:: DESTINATION "${VETOOLS_PACKAGE_DIR}")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VeToolsConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/VeToolsConfig.cmake" INSTALL_DESTINATION "${VETOOLS_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VeToolsConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VeToolsConfig.cmake" "${PROJECT_BINARY_DIR}/VeToolsConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/VeToolsStringModule.cmake" "${PROJECT_SOURCE_DIR}/cmake/StringModule.cpp.in"
    "${PROJECT_SOURCE_DIR}/cmake/StringModule.rc.in"
    DESTINATION "${VETOOLS_PACKAGE_DIR}")

# vetools.pc finds its prefix from where it lies: lib/pkgconfig -> ../..
string(REGEX REPLACE "[^/]+" ".." VETOOLS_PC_ROOT "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
configure_file("${PROJECT_SOURCE_DIR}/cmake/vetools.pc.in" "${PROJECT_BINARY_DIR}/vetools.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vetools.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
