#!/usr/bin/env bash
# Installs what is missing, builds everything with warnings as errors, and
# runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh libgtest-dev libgmock-dev ffmpeg
jobs=$(nproc)
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_WERROR=ON
cmake --build build -j "$jobs"
ctest --test-dir build -j "$jobs" --output-on-failure
