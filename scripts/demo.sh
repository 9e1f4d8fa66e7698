#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job: `pixmoor demo`, a
# test picture made in memory, converted through every pair of the library
# and a set of size transforms, written as PNG files and one contact sheet.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build-demo -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_BUILD_TESTS=OFF
cmake --build build-demo -j "$(nproc)"
out=${1:-pixmoor-demo}
build-demo/tools/pixmoor demo "$out"
