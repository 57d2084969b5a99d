# What an installed copy holds: library, headers, CMake package, pkg-config module, licence. Nothing in it
# names the prefix, so it can be moved.

include(CMakePackageConfigHelpers)

install(TARGETS veltoprotocol EXPORT veltoprotocolTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/veltoprotocol")
install(EXPORT veltoprotocolTargets NAMESPACE veltoprotocol:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/veltoprotocolConfig.cmake.in veltoprotocolConfig.cmake
  INSTALL_DESTINATION "${package_dir}" NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(veltoprotocolConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/veltoprotocolConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/veltoprotocolConfigVersion.cmake"
  cmake/FindTinyXML.cmake
  DESTINATION "${package_dir}")

file(RELATIVE_PATH prefix_from_pc
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
configure_file(cmake/veltoprotocol.pc.in veltoprotocol.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/veltoprotocol.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
