# hx_add_library(NAME <target> [SHARED] DEPS <libs...>)
# Builds every source of the calling folder (and its sub-folders) into one target. Headers are public
# and reachable by their class name; the same flat layout is what `cmake --install` ships.
set(HX_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/HXMapControls)
set_property(GLOBAL PROPERTY HX_EXPORTED_TARGETS "")

function(hx_add_library)
  cmake_parse_arguments(ARG "SHARED" "NAME" "DEPS;PRIVATE_DEPS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS
       ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.ui ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  list(FILTER headers EXCLUDE REGEX "/private/|_p\\.h$")
  if(ARG_SHARED)
    add_library(${ARG_NAME} SHARED ${sources})
  else()
    add_library(${ARG_NAME} STATIC ${sources})
  endif()
  add_library(HXMapControls::${ARG_NAME} ALIAS ${ARG_NAME})
  set(include_dirs ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(h ${headers})
    get_filename_component(d ${h} DIRECTORY)
    list(APPEND include_dirs ${d})
  endforeach()
  list(REMOVE_DUPLICATES include_dirs)
  foreach(d ${include_dirs})
    target_include_directories(${ARG_NAME} PUBLIC $<BUILD_INTERFACE:${d}>)
  endforeach()
  target_include_directories(${ARG_NAME} PUBLIC $<INSTALL_INTERFACE:${HX_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${ARG_NAME} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
  set_target_properties(${ARG_NAME} PROPERTIES EXPORT_NAME ${ARG_NAME})
  install(TARGETS ${ARG_NAME} EXPORT HXMapControlsTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${headers} DESTINATION ${HX_INSTALL_INCLUDEDIR})
endfunction()
