include(CMakePackageConfigHelpers)
set(HX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/HXMapControls)
install(EXPORT HXMapControlsTargets NAMESPACE HXMapControls:: DESTINATION ${HX_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/HXMapControlsConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfig.cmake INSTALL_DESTINATION ${HX_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)  # before 1.0, as the SOVERSION says
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/HXMapControlsConfigVersion.cmake
        DESTINATION ${HX_CMAKE_DIR})

# pkg-config, relocatable: the prefix is found from where the file lies.
set(HX_PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH HX_PC_TO_PREFIX /${HX_PC_DIR} /)
string(REGEX REPLACE "/$" "" HX_PC_TO_PREFIX "${HX_PC_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/HXMapControls.pc.in ${CMAKE_CURRENT_BINARY_DIR}/HXMapControls.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/HXMapControls.pc DESTINATION ${HX_PC_DIR})

# The Qt Designer plugin goes where this Qt looks for Designer plugins, taken relative to Qt's own
# prefix and placed under ours: with the prefix /usr on Debian that is Qt's own folder
# (lib/x86_64-linux-gnu/qt5/plugins/designer); under another prefix, Designer finds it once
# QT_PLUGIN_PATH names <prefix>/<that folder without designer/>.
if(TARGET hxdesignerplugin)
  get_target_property(hx_qmake Qt5::qmake IMPORTED_LOCATION)
  execute_process(COMMAND ${hx_qmake} -query QT_INSTALL_PREFIX OUTPUT_VARIABLE hx_qt_prefix
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${hx_qmake} -query QT_INSTALL_PLUGINS OUTPUT_VARIABLE hx_qt_plugins
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  file(RELATIVE_PATH hx_plugins_rel ${hx_qt_prefix} ${hx_qt_plugins})
  set(HX_DESIGNER_PLUGIN_DIR ${hx_plugins_rel}/designer CACHE STRING
      "Where the Qt Designer plugin is installed, relative to the install prefix")
  # The plugin finds the library it links in the installed library folder, wherever the prefix is.
  file(RELATIVE_PATH hx_plugin_to_lib /${HX_DESIGNER_PLUGIN_DIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(hxdesignerplugin PROPERTIES INSTALL_RPATH "$ORIGIN/${hx_plugin_to_lib}")
  install(TARGETS hxdesignerplugin LIBRARY DESTINATION ${HX_DESIGNER_PLUGIN_DIR})
endif()
