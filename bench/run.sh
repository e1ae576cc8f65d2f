#!/usr/bin/env bash
# run.sh [MEASUREMENT...]: runs the measurements, all unless named. BENCH_ARGS reaches the program, as in
# BENCH_ARGS='--divisor 10'. The trees stay under build/bench for the next run.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

(($#)) || set -- listing copy memory zip unchanged tick windows
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
  run_wine "$top/build/mingw/bin/qlm_bench.exe" "$measurement" --root "$(to_win "$top/build/bench")" \
    --7z "$(to_win "$(archiver_windows)")" "${extra[@]}"
done
