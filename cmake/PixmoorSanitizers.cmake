# Sanitizer and fuzzing builds.
#
# PIXMOOR_SANITIZE instruments every target of the build (library, tests,
# tools) with the named sanitizers: "address,undefined" (LeakSanitizer comes
# with AddressSanitizer) or "thread".  Any report ends the program, so a test
# that provokes one fails.
#
# PIXMOOR_BUILD_FUZZ (Clang only) builds the libFuzzer harnesses of
# tests/fuzz.  The library is then compiled with coverage feedback for the
# fuzzer, and with AddressSanitizer and UndefinedBehaviorSanitizer unless
# PIXMOOR_SANITIZE names others.
set(PIXMOOR_SANITIZE "" CACHE STRING
    "Sanitizers for every target: address,undefined | address | undefined | thread (empty: none)")
option(PIXMOOR_BUILD_FUZZ "Build the libFuzzer harnesses (Clang only)" OFF)

if(PIXMOOR_BUILD_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "PIXMOOR_BUILD_FUZZ needs Clang (configure with CMAKE_CXX_COMPILER=clang++-14)")
  endif()
  if(NOT PIXMOOR_SANITIZE)
    set(PIXMOOR_SANITIZE "address,undefined")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(PIXMOOR_SANITIZE)
  if(NOT PIXMOOR_SANITIZE MATCHES "^(address|undefined|address,undefined|undefined,address|thread)$")
    message(FATAL_ERROR "PIXMOOR_SANITIZE: unknown set '${PIXMOOR_SANITIZE}'")
  endif()
  add_compile_options(-fsanitize=${PIXMOOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
  add_link_options(-fsanitize=${PIXMOOR_SANITIZE})
  message(STATUS "Pixmoor: sanitizers ${PIXMOOR_SANITIZE}")
endif()
