# Installs the libraries, their public headers and what other projects find them by.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/KorvelFile)

install(TARGETS KorvelBase KorvelFile EXPORT KorvelFileTargets)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/korvelfile DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
install(EXPORT KorvelFileTargets NAMESPACE KorvelFile:: DESTINATION ${package_folder})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KorvelFileConfig.cmake.in
  KorvelFileConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(KorvelFileConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/KorvelFileConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/KorvelFileConfigVersion.cmake
  ${CMAKE_CURRENT_LIST_DIR}/FindNewmat.cmake
  DESTINATION ${package_folder})

# The copy may be moved: the file finds the folders from where it lies itself.
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/korvelfile.pc.in korvelfile.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/korvelfile.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET korvel)
  install(TARGETS korvel)
endif()
