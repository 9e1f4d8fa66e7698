#!/usr/bin/env bash
# x86-64 with PIXMOOR_PORTABLE_KERNELS: the a6 and w7 tiers run the portable
# forms that processors without SSE2 run, and the test programs of every
# family with vector kernels (and of the colour transforms that call them)
# must pass here exactly as they do with the SSE2 kernels.  Every exhaustive
# sweep runs in full, so this is where the portable forms are proved on all
# inputs.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=${PIXMOOR_JOBS:-$(nproc)}
build=build-portable
programs=(test_primitives_colour test_primitives_mirror test_primitives_moments test_primitives_signal
          test_colour test_runtime)
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_WERROR=ON -DPIXMOOR_PORTABLE_KERNELS=ON \
  -DPIXMOOR_BUILD_EXAMPLES=OFF -DPIXMOOR_BUILD_TOOLS=OFF
cmake --build "$build" -j "$jobs" --target "${programs[@]}"
status=0
for program in "${programs[@]}"; do
  echo "== $program (portable kernels)"
  "$build/tests/$program" --gtest_brief=1 || status=1
done
exit $status
