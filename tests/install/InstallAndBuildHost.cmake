# cmake -DBUILD_DIR=… -DHOST_SOURCE=… -DWORK_DIR=… [-DGENERATOR=…] [-DHOST_FLAGS=…] -P InstallAndBuildHost.cmake
# Installs the build into a fresh prefix and uses it as a host would: builds the host project against
# that prefix with the library's private dependencies (GDAL, PROJ, GEOS, Boost, OpenSSL) hidden from
# CMake and pkg-config, runs it, checks the pkg-config file, and runs the installed viewer.
function(run_step what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${out}\n${err}")
  endif()
  message(STATUS "${what}: ok")
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)
run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# Only the public API is installed, and no archive of the library's parts.
foreach(internal HOMapRenderer.h HOViewFrame.h HXMapWidget.h)
  if(EXISTS ${prefix}/include/HXMapControls/${internal})
    message(FATAL_ERROR "internal header installed: ${internal}")
  endif()
endforeach()
file(GLOB_RECURSE archives ${prefix}/*.a)
if(archives)
  message(FATAL_ERROR "static archives installed: ${archives}")
endif()

# Every installed header compiles in the host, found by its name alone.
file(GLOB installed_headers RELATIVE ${prefix}/include/HXMapControls ${prefix}/include/HXMapControls/*.h)
set(all_headers "")
foreach(h ${installed_headers})
  string(APPEND all_headers "#include <${h}>\n")
endforeach()
file(WRITE ${WORK_DIR}/all_headers.cpp "${all_headers}")

set(generator)
if(GENERATOR)
  set(generator -G ${GENERATOR})
endif()
set(hidden)
foreach(package GDAL PROJ proj GEOS Boost OpenSSL PkgConfig)
  list(APPEND hidden -DCMAKE_DISABLE_FIND_PACKAGE_${package}=ON)
endforeach()
file(MAKE_DIRECTORY ${WORK_DIR}/no-pkgconfig)
set(no_pkgconfig ${CMAKE_COMMAND} -E env PKG_CONFIG_LIBDIR=${WORK_DIR}/no-pkgconfig PKG_CONFIG_PATH=)
run_step("configure host" ${no_pkgconfig} ${CMAKE_COMMAND} -S ${HOST_SOURCE} -B ${WORK_DIR}/build ${generator}
         ${hidden} -DHX_ALL_HEADERS=${WORK_DIR}/all_headers.cpp -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_CXX_FLAGS=${HOST_FLAGS}"
         "-DCMAKE_EXE_LINKER_FLAGS=${HOST_FLAGS}")
run_step("build host" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run_step("run host" ${WORK_DIR}/build/hxhost)

file(GLOB pc_files ${prefix}/lib*/pkgconfig/HXMapControls.pc ${prefix}/lib/*/pkgconfig/HXMapControls.pc)
if(NOT pc_files)
  message(FATAL_ERROR "no HXMapControls.pc installed")
endif()
get_filename_component(pc_dir ${pc_files} DIRECTORY)
run_step("pkg-config" ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pc_dir} pkg-config --cflags --libs HXMapControls)
string(REGEX MATCH "-I([^ \n]+)" flag "${step_output}")
if(NOT EXISTS "${CMAKE_MATCH_1}/HXMapCanvas.h")
  message(FATAL_ERROR "pkg-config names the wrong include folder: ${step_output}")
endif()

# The installed viewer finds the installed library by its own run path.
run_step("installed viewer" ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH QT_QPA_PLATFORM=offscreen
         ${prefix}/bin/hxmapviewer --screenshot ${WORK_DIR}/viewer.png --size 200x150)
if(NOT EXISTS ${WORK_DIR}/viewer.png)
  message(FATAL_ERROR "the installed viewer wrote no screenshot")
endif()
