#!/usr/bin/env bash
# Installs what is missing, builds everything with warnings as errors, and
# runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
jobs=$(nproc)
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_WERROR=ON
cmake --build build -j "$jobs"
ctest --test-dir build -j "$jobs" --output-on-failure

# ---- Other platforms (docs/platforms.md): the portable kernels on this
# processor, 32-bit x86, and ARM64 under emulation.
scripts/build-portable-kernels.sh
scripts/build-x86-32.sh
scripts/build-arm64.sh
