#!/usr/bin/env bash
# soak.sh [MINUTES]: runs the fuzz targets and the endurance walk side by side, by default for 5 minutes in all,
# and prints what they did. Inputs that break a target are kept in build/soak/broken. SOAK_SEED repeats a walk;
# SOAK_TARGETS names the fuzz targets, SOAK_WALK= leaves the walk out.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

minutes=${1:-5}
[[ $minutes =~ ^[1-9][0-9]*$ ]] || die "usage: soak.sh [MINUTES]"
seed=${SOAK_SEED:-$RANDOM}
walk=${SOAK_WALK-$top/tests/soak/walk.py}
read -ra targets <<<"${SOAK_TARGETS:-document settings clip filter pattern replace command names}"
folder=$top/build/soak
mkdir -p "$folder/broken"

# The walk takes one processor, and each target its share of the others.
workers=$(($(nproc) - (${#walk} > 0)))
((workers > 0)) || workers=1
seconds=$((minutes * 60 * workers / ${#targets[@]}))

build() { # PRESET TARGET
  quietly cmake -S "$top" --preset "$1" && quietly cmake --build "$top/build/$1" --target "$2" || die "soak: no $2"
}

# Runs one target. New inputs are added to the growing corpus, which the next run starts from.
fuzz() {
  local target=$1
  mkdir -p "$folder/corpus/$target"
  QLM_TARGET=$target nice -n 15 "$top/build/fuzz/bin/qlm_fuzz" -max_total_time="$seconds" -timeout=30 \
    -report_slow_units=30 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 -dict="$top/tests/fuzz/words.dict" \
    -artifact_prefix="$folder/broken/$target-" \
    "$folder/corpus/$target" "$top/tests/fuzz/corpus/$target" >"$folder/$target.log" 2>&1
}

# Prints the number that follows LABEL in the last line that has it.
last_number() { # LABEL LOG
  { grep -aoE "$1:? +[0-9]+" "$2" || echo 0; } | tail -n1 | grep -oE '[0-9]+$'
}

row() { printf '%-10s %12s %8s %8s %8s\n' "$@"; }

# Prints the failures and returns whether there are any.
failures() {
  local mark
  for mark in "$folder"/*.failed; do
    [[ -e $mark ]] || return 1
    say "failed: $(basename "$mark" .failed), see ${mark%.failed}.log"
  done
}

report() {
  local target
  row target executions broken edges corpus
  for target in "${targets[@]}"; do
    row "$target" "$(last_number stat::number_of_executed_units "$folder/$target.log")" \
      "$(find "$folder/broken" -name "$target-*" -newer "$folder/started" | wc -l)" \
      "$(last_number cov "$folder/$target.log")" "$(find "$folder/corpus/$target" -type f | wc -l)"
  done
  [[ -z $walk ]] || tail -n1 "$folder/walk.log"
  ! failures
}

"$top/scripts/setup.sh"
build fuzz qlm_fuzz
[[ -z $walk ]] || build mingw QuillmoorRun
rm -f "$folder"/*.failed
: >"$folder/started"
say "soak: $minutes minutes, ${#targets[@]} targets of $seconds s each${walk:+, walk with seed $seed}"
export -f fuzz
export top folder seconds
if [[ $walk ]]; then
  ensure_wine_prefix
  { nice -n 15 python3 "$walk" --minutes "$minutes" --seed "$seed" \
      --runner "$top/build/mingw/bin/QuillmoorRun.exe" >"$folder/walk.log" 2>&1 || : >"$folder/walk.failed"; } &
fi
printf '%s\n' "${targets[@]}" |
  xargs -P "$workers" -I{} bash -c 'fuzz {} || : >"$folder/{}.failed"'
wait
report
