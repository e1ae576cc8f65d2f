#!/usr/bin/env bash
# test.sh [CTEST-ARGS...]: builds everything and runs all tests. The arguments are passed to ctest (-R NAME).
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

# With a filter a build may have no matching test; without one that is an error.
none=error
(($#)) && none=ignore

summaries=()
failed=0

run_tests() {
  local preset=$1 jobs=$2 log=$top/build/$1/ctest.log
  shift 2
  say "test: $preset"
  ctest --test-dir "$top/build/$preset" -j "$jobs" --output-on-failure --no-tests=$none "$@" 2>&1 |
    tee "$log" || failed=1
  summaries+=("$preset: $(grep -E 'tests passed, .* out of' "$log" || echo 'no test ran')")
}

"$top/scripts/build.sh" mingw host tsan
trap stop_wine_server EXIT
start_wine_server

run_tests host 2 "$@"
run_tests tsan 2 "$@"
# Wine programs share one server and one prefix, so running them in parallel gains nothing.
run_tests mingw 1 "$@"

printf '%s\n' "${summaries[@]}"
exit $failed
