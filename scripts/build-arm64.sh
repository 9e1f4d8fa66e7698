#!/usr/bin/env bash
# 64-bit ARM: cross-built with g++-aarch64-linux-gnu, the suite run under
# qemu-user.  There is no CPUID, selection falls to px, and the a6 and w7
# entries run the portable forms of their own arithmetic.
#
# Under emulation the exhaustive colour sweeps would take much of the CI
# budget, so they take every PIXMOOR_SWEEP_STRIDE-th value of their outermost
# channel here (5 keeps both 0 and 255); the x86-64 portable-kernels build
# runs the same portable code over every value.
set -euo pipefail
cd "$(dirname "$0")/.."
export PIXMOOR_SWEEP_STRIDE=${PIXMOOR_SWEEP_STRIDE:-5}
exec scripts/target-suite.sh build-arm64 cmake/toolchains/aarch64-linux-gnu.cmake arm64 "$@"
