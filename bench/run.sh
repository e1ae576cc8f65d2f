#!/usr/bin/env bash
# run.sh [MEASUREMENT...]: runs the given measurements, or all. BENCH_ARGS is passed to the program, for
# example BENCH_ARGS='--divisor 10'. The file trees in build/bench are reused by later runs.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

(($#)) || set -- listing copy memory zip unchanged plan tick windows start
"$top/scripts/build.sh" mingw
start_wine_server
mkdir -p "$top/build/bench"
read -ra extra <<<"${BENCH_ARGS-}"
for measurement; do
  say ""
  if [[ $measurement == windows ]]; then
    "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_window_bench.exe" --gtest_brief=1
    continue
  fi
  if [[ $measurement == start ]]; then
    "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_start_bench.exe"
    continue
  fi
  run_wine "$top/build/mingw/bin/qlm_bench.exe" "$measurement" --root "$(to_win "$top/build/bench")" \
    --7z "$(to_win "$(archiver_windows)")" "${extra[@]}"
done
