# hx_add_library(NAME <name> [DEPS <libs...>] [PRIVATE_DEPS <libs...>] [PUBLIC_HEADERS <headers...>]
#                [NO_ARCHIVE])
# Compiles every source of the calling folder (and its sub-folders) once, with hidden visibility, into
# the object library <name>_objects; the objects make the static library <name> (tests, tools and the
# folders above link it; NO_ARCHIVE leaves it out) and are all compiled into the one shared library
# hosts link (hx_add_shared_library). Inside the build every header of the folder is reachable by its
# class name. PUBLIC_HEADERS, relative to the folder, are the host's API: the shared library offers
# only those, and `cmake --install` ships only those, flat under include/HXMapControls.
set(HX_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/HXMapControls)
set(HX_PUBLIC_INCLUDE_DIR ${CMAKE_BINARY_DIR}/include/HXMapControls)
set_property(GLOBAL PROPERTY HX_OBJECT_LIBRARIES "")
set_property(GLOBAL PROPERTY HX_THIRD_PARTY_LIBRARIES "")

function(hx_add_library)
  cmake_parse_arguments(ARG "NO_ARCHIVE" "NAME" "DEPS;PRIVATE_DEPS;PUBLIC_HEADERS" ${ARGN})
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

  add_library(${ARG_NAME}_objects OBJECT ${sources})
  target_compile_definitions(${ARG_NAME}_objects PRIVATE HX_BUILDING_LIBRARY)
  set(targets ${ARG_NAME}_objects)
  if(NOT ARG_NO_ARCHIVE)
    add_library(${ARG_NAME} STATIC $<TARGET_OBJECTS:${ARG_NAME}_objects>)
    set_target_properties(${ARG_NAME} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF LINKER_LANGUAGE CXX)
    list(APPEND targets ${ARG_NAME})
  endif()
  foreach(t ${targets})
    target_include_directories(${t} PUBLIC ${include_dirs})
    target_link_libraries(${t} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
  endforeach()

  # The shared library takes the objects and links the third-party libraries itself.
  set_property(GLOBAL APPEND PROPERTY HX_OBJECT_LIBRARIES ${ARG_NAME}_objects)
  foreach(dep ${ARG_DEPS} ${ARG_PRIVATE_DEPS})
    if(dep MATCHES "::")
      set_property(GLOBAL APPEND PROPERTY HX_THIRD_PARTY_LIBRARIES ${dep})
    endif()
  endforeach()

  # Inside the build the public headers are seen through one folder of forwarding headers, so a
  # target that links the shared library compiles against the host's view of it.
  foreach(h ${ARG_PUBLIC_HEADERS})
    get_filename_component(path ${h} ABSOLUTE)
    get_filename_component(name ${h} NAME)
    file(CONFIGURE OUTPUT ${HX_PUBLIC_INCLUDE_DIR}/${name} CONTENT "#include \"${path}\"\n")
  endforeach()
  install(FILES ${ARG_PUBLIC_HEADERS} DESTINATION ${HX_INSTALL_INCLUDEDIR})
endfunction()

# hx_add_shared_library(<name>): the shared library hosts link, made of the objects of every
# hx_add_library so far; it exports what the public headers mark HX_EXPORT and nothing else.
function(hx_add_shared_library name)
  get_property(object_libraries GLOBAL PROPERTY HX_OBJECT_LIBRARIES)
  get_property(third_party GLOBAL PROPERTY HX_THIRD_PARTY_LIBRARIES)
  list(REMOVE_DUPLICATES third_party)
  add_library(${name} SHARED)
  add_library(HXMapControls::${name} ALIAS ${name})
  foreach(lib ${object_libraries})
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${lib}>)
  endforeach()
  # The public headers include Qt's widget headers and nothing else from outside.
  target_link_libraries(${name} PUBLIC Qt5::Widgets PRIVATE ${third_party})
  target_include_directories(${name} INTERFACE $<BUILD_INTERFACE:${HX_PUBLIC_INCLUDE_DIR}>
                                               $<INSTALL_INTERFACE:${HX_INSTALL_INCLUDEDIR}>)
  # Before 1.0 every minor version may change the ABI.
  if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  else()
    set(soversion ${PROJECT_VERSION_MAJOR})
  endif()
  set(version_script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/HXMapControls.map)
  target_link_options(${name} PRIVATE "LINKER:--version-script=${version_script}")
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${soversion}
                                           EXPORT_NAME ${name} LINKER_LANGUAGE CXX
                                           LINK_DEPENDS ${version_script})
  install(TARGETS ${name} EXPORT HXMapControlsTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()
