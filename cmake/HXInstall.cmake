include(CMakePackageConfigHelpers)
set(HX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/HXMapControls)
install(EXPORT HXMapControlsTargets NAMESPACE HXMapControls:: DESTINATION ${HX_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/HXMapControlsConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfig.cmake INSTALL_DESTINATION ${HX_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfigVersion.cmake
        DESTINATION ${HX_CMAKE_DIR})
