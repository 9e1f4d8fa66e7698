# 64-bit ARM with Debian's cross compiler (g++-aarch64-linux-gnu); programs
# run under qemu-user, so CTest runs the test programs through it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# The C and C++ runtime come with the cross compiler; libpng and zlib, which
# the tool and the example link, from the build folder
# (scripts/target-packages.sh fetches them there), in Debian's multiarch
# layout.
set(PIXMOOR_TARGET_SYSROOT /usr/aarch64-linux-gnu)
if(NOT PIXMOOR_TARGET_PACKAGES)
  set(PIXMOOR_TARGET_PACKAGES ${CMAKE_BINARY_DIR}/target-packages)
endif()
set(CMAKE_FIND_ROOT_PATH ${PIXMOOR_TARGET_SYSROOT} ${PIXMOOR_TARGET_PACKAGES})
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

find_program(PIXMOOR_QEMU_AARCH64 qemu-aarch64 REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${PIXMOOR_QEMU_AARCH64} -L ${PIXMOOR_TARGET_SYSROOT})
