#!/usr/bin/env bash
# 64-bit ARM: the library, the tool, the example and the whole suite
# cross-built with g++-aarch64-linux-gnu and run under qemu-user.  There is
# no CPUID, selection falls to px, and the a6 and w7 entries run the portable
# forms of their own arithmetic.  The tool's end-to-end tests start the tool
# through the emulator too; ffmpeg, in its interoperability tests, is the
# machine's own.
#
# Under emulation the exhaustive colour sweeps would take much of the CI
# budget, so they take every PIXMOOR_SWEEP_STRIDE-th value of their outermost
# channel here (5 keeps both 0 and 255); the x86-64 portable-kernels build
# runs the same portable code over every value.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh libgtest-dev ffmpeg g++-aarch64-linux-gnu qemu-user
export PIXMOOR_SWEEP_STRIDE=${PIXMOOR_SWEEP_STRIDE:-5}
exec scripts/target-suite.sh build-arm64 cmake/toolchains/aarch64-linux-gnu.cmake arm64 "$@"
