#!/usr/bin/env bash
# run.sh [MEASUREMENT...]: runs the given measurements, or all. BENCH_ARGS is passed to the program, for
# example BENCH_ARGS='--divisor 10'. The file trees in build/bench are reused by later runs.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

# Without debug symbols, as the programs are shipped: Wine reads them at the start.
measure_start() {
  local bin=$top/build/mingw/bin folder=$top/build/bench/start program
  mkdir -p "$folder"
  for program in Quillmoor qlm_empty_window; do
    x86_64-w64-mingw32-strip -o "$folder/$program.exe" "$bin/$program.exe"
  done
  "$top/scripts/gui-run.sh" "$bin/qlm_start_bench.exe" "$(to_win "$folder")" "${START_ROUNDS-15}"
}

(($#)) || set -- listing copy large-copy flushed-copy memory zip unchanged plan tick windows start
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
    measure_start
    continue
  fi
  run_wine "$top/build/mingw/bin/qlm_bench.exe" "$measurement" --root "$(to_win "$top/build/bench")" \
    --7z "$(to_win "$(archiver_windows)")" "${extra[@]}"
done
