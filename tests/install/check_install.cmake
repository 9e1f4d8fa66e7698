# Run with -P.  Fails (FATAL_ERROR) at the first step that does not work.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
  set(LAST_OUTPUT "${out}" PARENT_SCOPE)
endfunction()

# A build for another target (TOOLCHAIN) builds the consumers with the same
# toolchain file and flags, and runs them through its EMULATOR, if any.
set(toolchain_arg "")
if(TOOLCHAIN)
  set(toolchain_arg -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
separate_arguments(target_flags UNIX_COMMAND "${TARGET_FLAGS}")

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# find_package, shared and static.
foreach(kind shared static)
  set(bdir ${WORK_DIR}/cmake-${kind})
  run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${bdir} -DCMAKE_PREFIX_PATH=${prefix}
      -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_C_COMPILER=${CC} -DCONSUMER_KIND=${kind} ${toolchain_arg})
  run(${CMAKE_COMMAND} --build ${bdir})
  run(${EMULATOR} ${bdir}/consumer)
  run(${EMULATOR} ${bdir}/consumer_c)
endforeach()

# pkg-config, shared and static.
find_program(PKG_CONFIG NAMES pkg-config pkgconf REQUIRED)
file(GLOB pcdir LIST_DIRECTORIES true ${prefix}/lib*/pkgconfig ${prefix}/lib/*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
run(${PKG_CONFIG} --define-variable=prefix=${prefix} --cflags --libs pixmoor)
separate_arguments(flags UNIX_COMMAND "${LAST_OUTPUT}")
run(${CXX} ${target_flags} -std=c++17 ${SOURCE_DIR}/consumer.cpp ${flags} -o ${WORK_DIR}/pc-shared)
get_filename_component(libdir ${pcdir} DIRECTORY)
set(ENV{LD_LIBRARY_PATH} "${libdir}")
run(${EMULATOR} ${WORK_DIR}/pc-shared)
run(${PKG_CONFIG} --define-variable=prefix=${prefix} --static --cflags --libs pixmoor)
separate_arguments(flags UNIX_COMMAND "${LAST_OUTPUT}")
run(${CXX} ${target_flags} -std=c++17 -static-libstdc++ ${SOURCE_DIR}/consumer.cpp -Wl,-Bstatic ${flags} -Wl,-Bdynamic -o ${WORK_DIR}/pc-static)
set(ENV{LD_LIBRARY_PATH} "")
run(${EMULATOR} ${WORK_DIR}/pc-static)
message(STATUS "installed package works with find_package and pkg-config")
