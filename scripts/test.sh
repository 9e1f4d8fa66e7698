#!/usr/bin/env bash
# Installs what is missing, builds everything with warnings as errors, and
# runs the whole test suite; then the reliability stages, each of which can
# also be run alone:
#   scripts/sanitize.sh asan   the suite under Address, UndefinedBehavior and
#                              Leak sanitizers (build-asan)
#   scripts/sanitize.sh tsan   the concurrency tests under ThreadSanitizer
#                              (build-tsan)
#   scripts/fuzz.sh            a short run of every fuzz harness (build-fuzz;
#                              FUZZ_SECONDS each, 20 by default)
#   scripts/build-portable-kernels.sh, scripts/build-x86-32.sh,
#   scripts/build-arm64.sh    the other platforms (docs/platforms.md)
# PIXMOOR_STAGES picks among "suite asan tsan fuzz portable x86-32 arm64"
# (default: all).
set -euo pipefail
cd "$(dirname "$0")/.."
# The other platforms need the 32-bit x86 compilers, the ARM64 cross compiler
# and the user-mode emulator; g++-12-multilib rather than the g++-multilib
# meta-package, which conflicts with cross compilers.
scripts/install-deps.sh libgtest-dev libgmock-dev ffmpeg g++-12-multilib g++-aarch64-linux-gnu qemu-user
jobs=$(nproc)
stages=" ${PIXMOOR_STAGES:-suite asan tsan fuzz portable x86-32 arm64} "
started=$(date +%s)
stamp() { echo "=== $1 done after $(( $(date +%s) - started )) s"; }

if [[ $stages == *" suite "* ]]; then
  cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_WERROR=ON
  cmake --build build -j "$jobs"
  ctest --test-dir build -j "$jobs" --output-on-failure
  stamp "test suite"
fi
if [[ $stages == *" asan "* ]]; then scripts/sanitize.sh asan; stamp "sanitizer suite"; fi
if [[ $stages == *" tsan "* ]]; then scripts/sanitize.sh tsan; stamp "thread sanitizer"; fi
if [[ $stages == *" fuzz "* ]]; then scripts/fuzz.sh; stamp "fuzzing"; fi
if [[ $stages == *" portable "* ]]; then scripts/build-portable-kernels.sh; stamp "portable kernels"; fi
if [[ $stages == *" x86-32 "* ]]; then scripts/build-x86-32.sh; stamp "32-bit x86"; fi
if [[ $stages == *" arm64 "* ]]; then scripts/build-arm64.sh; stamp "ARM64 under emulation"; fi
