#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job: a test frame made
# in memory, converted through the library, written as PNG files.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build-demo -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_BUILD_TESTS=OFF
cmake --build build-demo -j "$(nproc)"
out=${1:-pixmoor-demo}
build-demo/examples/convert_frames "$out"
