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
  set(include_dirs ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(h ${headers})
    get_filename_component(d ${h} DIRECTORY)
    list(APPEND include_dirs ${d})
  endforeach()
  list(REMOVE_DUPLICATES include_dirs)
  if(ARG_SHARED)
    add_library(${ARG_NAME} SHARED ${sources})
    set(targets ${ARG_NAME})
  else()
    # The objects are compiled once and serve both the static library (tests, tools) and the shared
    # library hosts link, which takes them directly (see hx_link_object_model).
    add_library(${ARG_NAME}_objects OBJECT ${sources})
    add_library(${ARG_NAME} STATIC $<TARGET_OBJECTS:${ARG_NAME}_objects>)
    set_target_properties(${ARG_NAME} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF LINKER_LANGUAGE CXX)
    set(targets ${ARG_NAME} ${ARG_NAME}_objects)
  endif()
  add_library(HXMapControls::${ARG_NAME} ALIAS ${ARG_NAME})
  foreach(t ${targets})
    foreach(d ${include_dirs})
      target_include_directories(${t} PUBLIC $<BUILD_INTERFACE:${d}>)
    endforeach()
    target_include_directories(${t} PUBLIC $<INSTALL_INTERFACE:${HX_INSTALL_INCLUDEDIR}>)
    target_link_libraries(${t} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
  endforeach()
  set_target_properties(${ARG_NAME} PROPERTIES EXPORT_NAME ${ARG_NAME})
  install(TARGETS ${ARG_NAME} EXPORT HXMapControlsTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${headers} DESTINATION ${HX_INSTALL_INCLUDEDIR})
endfunction()

# hx_link_object_model(<shared target> <libs...>): compiles the libraries' objects into the shared
# target, so every process-wide registry of the object model exists once, in that library.
function(hx_link_object_model target)
  foreach(lib ${ARGN})
    if(TARGET ${lib}_objects)
      target_sources(${target} PRIVATE $<TARGET_OBJECTS:${lib}_objects>)
      # Third-party dependencies and include directories; the archive adds no object twice because
      # every symbol it holds is already defined by the objects above.
      target_link_libraries(${target} PRIVATE ${lib})
      target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:$<TARGET_PROPERTY:${lib},INTERFACE_INCLUDE_DIRECTORIES>>")
    endif()
  endforeach()
endfunction()
