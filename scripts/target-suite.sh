#!/usr/bin/env bash
# Builds the library and the whole test suite for another target
# with a CMake toolchain file, and runs the suite there.  The build scripts of
# each platform (build-x86-32.sh, build-arm64.sh) call it.
#   scripts/target-suite.sh <build folder> <toolchain file> [cmake options...]
#
# GoogleTest is built for the target from the sources that Debian's
# libgtest-dev ships (/usr/src/googletest), so no foreign-architecture
# packages are needed.  PIXMOOR_JOBS sets the parallel jobs (default: all
# cores).
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
toolchain=$PWD/$2
shift 2
jobs=${PIXMOOR_JOBS:-$(nproc)}

gtest_build=$build/googletest
gtest_prefix=$PWD/$build/googletest-prefix
mkdir -p "$build"
if [ ! -f "$gtest_prefix/lib/cmake/GTest/GTestConfig.cmake" ]; then
  echo "building GoogleTest for $(basename "$toolchain" .cmake)"
  {
    cmake -S /usr/src/googletest -B "$gtest_build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
      -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$gtest_prefix" -DCMAKE_INSTALL_LIBDIR=lib \
      -DBUILD_GMOCK=OFF -DINSTALL_GTEST=ON &&
      cmake --build "$gtest_build" -j "$jobs" &&
      cmake --install "$gtest_build"
  } > "$build/googletest.log" 2>&1 || { cat "$build/googletest.log"; exit 1; }
fi

# The example and the tool write PNG files and need the target's libpng,
# which the build machine does not have for other targets yet: they are left
# out of these builds for now (the library and its whole suite are built).
cmake -S . -B "$build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
  -DPIXMOOR_WERROR=ON -DPIXMOOR_BUILD_TESTS=ON -DPIXMOOR_BUILD_EXAMPLES=OFF -DPIXMOOR_BUILD_TOOLS=OFF \
  -DGTest_DIR="$gtest_prefix/lib/cmake/GTest" "$@"
cmake --build "$build" -j "$jobs"
ctest --test-dir "$build" -j "$jobs" --output-on-failure
