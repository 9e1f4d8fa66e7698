#!/usr/bin/env bash
# Builds the library, the tool, the example and the whole test suite for
# another target with a CMake toolchain file, and runs the suite there.  The
# build scripts of each platform (build-x86-32.sh, build-arm64.sh) call it.
#   scripts/target-suite.sh <build folder> <toolchain file> <Debian architecture>
#                           [cmake options...]
#
# Nothing of the target's is installed on the machine: GoogleTest is built
# for the target from the sources that Debian's libgtest-dev ships
# (/usr/src/googletest), and the target's libpng and zlib are fetched into
# <build folder>/target-packages, where the toolchain files look
# (scripts/target-packages.sh).  PIXMOOR_JOBS sets the parallel jobs
# (default: all cores).
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
toolchain=$PWD/$2
arch=$3
shift 3
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

scripts/target-packages.sh "$build/target-packages" "$arch"

cmake -S . -B "$build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
  -DPIXMOOR_WERROR=ON -DPIXMOOR_BUILD_TESTS=ON -DPIXMOOR_BUILD_EXAMPLES=ON -DPIXMOOR_BUILD_TOOLS=ON \
  -DGTest_DIR="$gtest_prefix/lib/cmake/GTest" "$@"
cmake --build "$build" -j "$jobs"
ctest --test-dir "$build" -j "$jobs" --output-on-failure
