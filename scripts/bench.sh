#!/usr/bin/env bash
# Installs the benchmark's packages (Google Benchmark, the two peer libraries,
# gnuplot), builds the benchmark, runs it and draws the chart.  Prints the
# comparison table; writes bench-results/report.md, report.json and
# chart.png.  Arguments go to the benchmark program (see bench/main.cpp),
# e.g. --filter=colour/ or --repetitions=5.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh libbenchmark-dev libyuv-dev libswscale-dev gnuplot-nox
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DPIXMOOR_WERROR=ON -DPIXMOOR_BUILD_BENCH=ON \
      -DPIXMOOR_BUILD_TESTS=OFF -DPIXMOOR_BUILD_EXAMPLES=OFF -DPIXMOOR_BUILD_TOOLS=OFF > /dev/null
cmake --build build-bench -j "$(nproc)" --target pixmoor_bench
status=0
build-bench/bench/pixmoor_bench --out=bench-results "$@" || status=$?
gnuplot -e "dir='bench-results'" bench/chart.gp
echo "chart: bench-results/chart.png"
exit $status
