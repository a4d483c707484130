# Installs the headers, the static library, the CMake package (varnex::varnex) and a pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS varnex EXPORT varnexTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/varnex DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT varnexTargets NAMESPACE varnex:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/varnex)

configure_package_config_file(cmake/varnexConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/varnexConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/varnex)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/varnexConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/varnexConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/varnexConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/varnex)

# The pkg-config file finds its prefix relative to where it is installed, so that an install
# under another prefix (cmake --install --prefix) stays usable.
file(RELATIVE_PATH VARNEX_PC_TO_PREFIX "/root/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/root")
configure_file(cmake/varnex.pc.in ${CMAKE_CURRENT_BINARY_DIR}/varnex.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/varnex.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
