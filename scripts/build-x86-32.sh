#!/usr/bin/env bash
# 32-bit x86: the library, the tool and the whole suite built with -m32 and
# run natively.  Here the numbers of the 32-bit design hold exactly (36
# bytes of allocator slack, 32-bit words in dispatch rows and run lists), and
# the tests that check them run.  The tool's tests include its end-to-end
# runs and the interoperability tests with the machine's ffmpeg.
set -euo pipefail
cd "$(dirname "$0")/.."
# g++-12-multilib rather than the g++-multilib meta-package, which conflicts
# with the ARM64 cross compiler.
scripts/install-deps.sh libgtest-dev ffmpeg g++-12-multilib
exec scripts/target-suite.sh build-x86-32 cmake/toolchains/x86-32-linux-gnu.cmake i386 "$@"
