# cmake -DBUILD_DIR=… -DHOST_SOURCE=… -DWORK_DIR=… [-DGENERATOR=…] [-DHOST_FLAGS=…] -P InstallAndBuildHost.cmake
# Installs the build into a fresh prefix, builds the host project against that prefix alone and runs
# it: proof that find_package(HXMapControls) and HXMapControls::HXMapControls work for a user.
function(run_step what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${out}\n${err}")
  endif()
  message(STATUS "${what}: ok")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)
run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
set(generator)
if(GENERATOR)
  set(generator -G ${GENERATOR})
endif()
run_step("configure host" ${CMAKE_COMMAND} -S ${HOST_SOURCE} -B ${WORK_DIR}/build ${generator}
         -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_CXX_FLAGS=${HOST_FLAGS}"
         "-DCMAKE_EXE_LINKER_FLAGS=${HOST_FLAGS}")
run_step("build host" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run_step("run host" ${WORK_DIR}/build/hxhost)
