# 32-bit x86 on an x86-64 Debian machine through the multilib compilers
# (g++-12-multilib): the host's gcc and g++ with -m32.  The programs run
# natively.  The processor is one with SSE2, as the w7 tier assumes, and
# float arithmetic goes through SSE registers rather than the x87 stack, so
# that every value is rounded to its type as on the other builds.  (The
# portable forms, for processors without SSE2, are proved by the x86-64 build
# with PIXMOOR_PORTABLE_KERNELS and by the ARM64 build.)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")

# 32-bit libraries and packages live under the i386 multiarch folders.
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(FIND_LIBRARY_USE_LIB32_PATHS ON)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB64_PATHS OFF)

# The 32-bit libpng and zlib that the tool and the example link come from
# the build folder (scripts/target-packages.sh fetches them there); they are
# searched before the machine's own folders, which have the 32-bit ones only
# if someone installed them.
if(NOT PIXMOOR_TARGET_PACKAGES)
  set(PIXMOOR_TARGET_PACKAGES ${CMAKE_BINARY_DIR}/target-packages)
endif()
list(APPEND CMAKE_FIND_ROOT_PATH ${PIXMOOR_TARGET_PACKAGES})

# The kernel's asm headers are the same for both x86 widths; Debian puts
# them under the x86-64 multiarch folder, and only the gcc-multilib
# meta-package (which conflicts with the cross compilers) links them where a
# 32-bit compile looks.  Point the compiler at them after its own folders.
if(NOT EXISTS /usr/include/asm AND EXISTS /usr/include/x86_64-linux-gnu/asm)
  set(PIXMOOR_ASM_SHIM ${CMAKE_BINARY_DIR}/x86-32-asm-headers)
  file(MAKE_DIRECTORY ${PIXMOOR_ASM_SHIM})
  file(CREATE_LINK /usr/include/x86_64-linux-gnu/asm ${PIXMOOR_ASM_SHIM}/asm SYMBOLIC)
  string(APPEND CMAKE_C_FLAGS_INIT " -idirafter ${PIXMOOR_ASM_SHIM}")
  string(APPEND CMAKE_CXX_FLAGS_INIT " -idirafter ${PIXMOOR_ASM_SHIM}")
endif()
