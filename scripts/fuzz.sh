#!/usr/bin/env bash
# Builds the libFuzzer harnesses of tests/fuzz with Clang (build-fuzz) and
# runs each one for a fixed time from its seed corpus, under
# AddressSanitizer and UndefinedBehaviorSanitizer.  Any crash, sanitizer
# report or failed property fails the stage; the input that caused it is kept
# in build-fuzz/artifacts/.
#
# Usage: scripts/fuzz.sh [harness...]      (no name: every harness)
#   FUZZ_SECONDS  time per harness (default 20)
#   FUZZ_KEEP     1 keeps what a run found in build-fuzz/found/<harness>
#                 and adds nothing to the seeds in the repository
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
seconds=${FUZZ_SECONDS:-20}
jobs=${JOBS:-$(nproc)}
clang_version=14

scripts/install-deps.sh "clang-$clang_version" "libclang-rt-$clang_version-dev"

cmake -S . -B build-fuzz -DCMAKE_C_COMPILER="clang-$clang_version" -DCMAKE_CXX_COMPILER="clang++-$clang_version" \
      -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_FLAGS=-O1 -DCMAKE_CXX_FLAGS=-O1 -DPIXMOOR_WERROR=ON \
      -DPIXMOOR_BUILD_FUZZ=ON -DPIXMOOR_BUILD_TESTS=OFF -DPIXMOOR_BUILD_EXAMPLES=OFF -DPIXMOOR_BUILD_TOOLS=ON
cmake --build build-fuzz -j "$jobs"

# Every harness has a seed folder and every seed folder a harness.
names=()
for source in tests/fuzz/*_fuzz.cpp; do
  name=$(basename "$source" _fuzz.cpp)
  [ -d "tests/fuzz/corpus/$name" ] || { echo "harness $name has no tests/fuzz/corpus/$name"; exit 1; }
  names+=("$name")
done
for folder in tests/fuzz/corpus/*/; do
  name=$(basename "$folder")
  [ -f "tests/fuzz/${name}_fuzz.cpp" ] || { echo "corpus $name has no harness"; exit 1; }
done
[ $# -eq 0 ] || names=("$@")

export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"

mkdir -p build-fuzz/artifacts
summary=()
for name in "${names[@]}"; do
  work="build-fuzz/found/$name"
  [ "${FUZZ_KEEP:-0}" = 1 ] || rm -rf "$work"
  mkdir -p "$work"
  log="build-fuzz/fuzz-$name.log"
  echo "=== fuzz_$name: $seconds s from $(ls "tests/fuzz/corpus/$name" | wc -l) seeds"
  if ! "build-fuzz/tests/fuzz/fuzz_$name" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="$root/build-fuzz/artifacts/$name-" \
        "$work" "tests/fuzz/corpus/$name" > "$log" 2>&1; then
    tail -n 60 "$log"
    echo "fuzz_$name FAILED; input kept in build-fuzz/artifacts/"
    exit 1
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  cover=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
  echo "fuzz_$name: $runs executions, $cover, no report"
  summary+=("$(printf '%-24s %12s executions' "fuzz_$name" "$runs")")
done
echo "=== fuzz summary (${seconds} s each)"
printf '%s\n' "${summary[@]}"
