# Installs the build into a scratch prefix, then builds and runs two consumers
# against it: one through find_package(vantrel_ddk), one through pkg-config.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    string(REPLACE ";" " " cmd "${ARGN}")
    message(FATAL_ERROR "failed: ${cmd}\n${out}\n${err}")
  endif()
  message(STATUS "${out}")
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

foreach(f include/vantrel/ddk.h lib/libvantrel_ddk.so lib/libvantrel_ddk.so.1 lib/libvantrel_ddk.so.1.0.0
          lib/pkgconfig/vantrel-ddk.pc lib/cmake/vantrel_ddk/vantrel_ddkConfig.cmake)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()

set(toolchain_arg)
if(TOOLCHAIN)
  set(toolchain_arg -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/cmake-build ${toolchain_arg}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_ROOT_PATH=${prefix}
    "-DCMAKE_CXX_FLAGS=${SANITIZE_FLAGS}" "-DCMAKE_C_FLAGS=${SANITIZE_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake-build)
run(${EMULATOR} ${WORK_DIR}/cmake-build/consumer)

set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
set(ENV{PKG_CONFIG_LIBDIR} ${prefix}/lib/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs vantrel-ddk
                OUTPUT_VARIABLE pc_flags RESULT_VARIABLE rc OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not find vantrel-ddk")
endif()
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
separate_arguments(san_flags UNIX_COMMAND "${SANITIZE_FLAGS}")
run(${C_COMPILER} -std=c99 -Wall -Wextra -pedantic -Werror ${san_flags}
    ${SOURCE_DIR}/consumer.c ${pc_flags} -Wl,-rpath,${prefix}/lib -o ${WORK_DIR}/pc-consumer)
run(${EMULATOR} ${WORK_DIR}/pc-consumer)

# A vendor's start: the sample plug-in copied out of the tree, built against the
# installed kit, and checked by the installed inspector.
if(SIMCAM_DIR)
  foreach(f bin/ddk-inspect lib/vantrel-ddk/plugins/simcam.so)
    if(NOT EXISTS ${prefix}/${f})
      message(FATAL_ERROR "not installed: ${f}")
    endif()
  endforeach()
  file(COPY ${SIMCAM_DIR}/ DESTINATION ${WORK_DIR}/my_camera)
  run(${CMAKE_COMMAND} -S ${WORK_DIR}/my_camera -B ${WORK_DIR}/my_camera-build ${toolchain_arg}
      -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_ROOT_PATH=${prefix}
      "-DCMAKE_CXX_FLAGS=${SANITIZE_FLAGS}" "-DCMAKE_MODULE_LINKER_FLAGS=${SANITIZE_FLAGS}")
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/my_camera-build)
  run(${EMULATOR} ${prefix}/bin/ddk-inspect ${WORK_DIR}/my_camera-build/simcam.so --check --quiet-ms 100)
endif()
