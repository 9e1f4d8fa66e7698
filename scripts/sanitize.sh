#!/usr/bin/env bash
# Sanitizer stages of the test run.  Usage: scripts/sanitize.sh [asan|tsan]...
# (no argument: both).
#
#   asan  the whole suite built with AddressSanitizer and
#         UndefinedBehaviorSanitizer (build-asan); LeakSanitizer checks every
#         test program at exit.  Any report fails the stage.
#   tsan  the concurrency tests built with ThreadSanitizer (build-tsan).
#
# Both builds use -O1: fast enough to run the exhaustive tests, close enough
# to the source for readable reports.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
scripts/install-deps.sh libgtest-dev libgmock-dev ffmpeg
jobs=${JOBS:-$(nproc)}
stages=("$@")
[ ${#stages[@]} -gt 0 ] || stages=(asan tsan)

# Tests whose names carry one of these words run under ThreadSanitizer.
tsan_filter='*Concurrency*:*Thread*'
# The packaging test builds a plain consumer against the installed library,
# which cannot load an instrumented one; it has nothing to sanitize.  Tests
# with a report of their own fault are listed, with the report, in
# scripts/sanitizer-excluded-tests.txt.
not_sanitized='^InstalledPackage\.'
list() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$1"; }
excluded=$(list scripts/sanitizer-excluded-tests.txt)
for name in $excluded; do not_sanitized="$not_sanitized|^${name//./\\.}\$"; done
# Tests with a required leak that no suppression can name run apart, with
# leak detection off (scripts/leak-exempt-tests.txt).
leak_exempt=""
for name in $(list scripts/leak-exempt-tests.txt); do leak_exempt="${leak_exempt:+$leak_exempt|}^${name//./\\.}\$"; done

configure() {  # folder, sanitizers
  cmake -S . -B "$1" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_FLAGS=-O1 -DCMAKE_CXX_FLAGS=-O1 \
        -DPIXMOOR_WERROR=ON -DPIXMOOR_SANITIZE="$2" -DPIXMOOR_BUILD_EXAMPLES=OFF
}

# halt_on_error: the first report ends the program; a report is never a
# warning.  The leak suppressions name single test bodies whose leak a class
# is required to have; see the file.
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$root/scripts/leak-suppressions.txt:print_suppressions=1"
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1"

for stage in "${stages[@]}"; do
  case "$stage" in
    asan)
      echo "=== AddressSanitizer + UndefinedBehaviorSanitizer + LeakSanitizer: whole suite ==="
      configure build-asan "address,undefined"
      cmake --build build-asan -j "$jobs"
      [ -z "$excluded" ] || echo "not run under the sanitizers (see scripts/sanitizer-excluded-tests.txt):" $excluded
      ctest --test-dir build-asan -j "$jobs" --output-on-failure -E "$not_sanitized${leak_exempt:+|$leak_exempt}"
      if [ -n "$leak_exempt" ]; then
        echo "--- with leak detection off (see scripts/leak-exempt-tests.txt)"
        ASAN_OPTIONS="$ASAN_OPTIONS:detect_leaks=0" ctest --test-dir build-asan --output-on-failure -R "$leak_exempt"
      fi
      ;;
    tsan)
      echo "=== ThreadSanitizer: concurrency tests ($tsan_filter) ==="
      configure build-tsan thread
      # Only the test programs whose sources start threads.
      targets=()
      for folder in $(grep -rlE --include='*.cpp' 'std::(thread|async)' tests | xargs -n1 dirname | grep -vE '^tests/(fuzz|install|support)' | sort -u); do
        name=${folder#tests/}
        targets+=("test_${name//\//_}")
      done
      [ ${#targets[@]} -gt 0 ] || { echo "no test starts a thread"; exit 1; }
      cmake --build build-tsan -j "$jobs" --target "${targets[@]}"
      ran=0
      for target in "${targets[@]}"; do
        program=build-tsan/tests/$target
        # Only programs that hold a matching test.
        if "$program" --gtest_list_tests --gtest_filter="$tsan_filter" | grep -q '^  '; then
          echo "--- $(basename "$program")"
          "$program" --gtest_filter="$tsan_filter" --gtest_brief=1
          ran=$((ran + $("$program" --gtest_list_tests --gtest_filter="$tsan_filter" | grep -c '^  ')))
        fi
      done
      [ "$ran" -gt 0 ] || { echo "no concurrency test found"; exit 1; }
      echo "ThreadSanitizer: $ran concurrency tests, no report"
      ;;
    *) echo "unknown stage: $stage (asan, tsan)"; exit 2 ;;
  esac
done
