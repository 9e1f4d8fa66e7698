#!/usr/bin/env bash
# 64-bit ARM: cross-built with g++-aarch64-linux-gnu, the suite run under
# qemu-user.  There is no CPUID, selection falls to px, and the a6 and w7
# entries run the portable forms of their own arithmetic.
#
# Under emulation the exhaustive sweeps (all 2^24 colour triples) would take
# most of the CI budget, so they visit every PIXMOOR_SWEEP_STRIDE-th value
# here (a prime stride, so every bit pattern of every channel still turns
# up); the x86 builds sweep everything, on the same portable forms.
set -euo pipefail
cd "$(dirname "$0")/.."
export PIXMOOR_SWEEP_STRIDE=${PIXMOOR_SWEEP_STRIDE:-61}
exec scripts/target-suite.sh build-arm64 cmake/toolchains/aarch64-linux-gnu.cmake "$@"
