#!/usr/bin/env bash
# Three runners at once run one document with a folder and an archive, in 20 rounds with a changed source.
# After each round every final name is a complete backup, and each runner reports success. The history has every
# run.
source "$(dirname "$0")/lib.sh" concurrent_runs

rounds=20 runners=3 files=12
archiver=$(to_win "$(archiver_windows)")
native=$(archiver_native)
mkdir -p "$work/src/sub"
{
  echo '<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>'
  for kind in FOLDER: ZIP:.zip; do
    echo "<Dst><Folder>$(to_win "$work/dst")</Folder><Type>${kind%:*}</Type>"
    echo "<Pattern>&lt;Y&gt;${kind#*:}</Pattern></Dst>"
  done
  echo "</Dsts><Tasks><Task><Id>folder</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task>"
  echo "<Task><Id>zip</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>1</Dst></Dsts><FilterPath/></Task>"
  echo '</Tasks></QuillmoorDoc>'
} >"$work/doc.qlmr"
document=$(to_win "$work/doc.qlmr")

# Prints the differences of the year's backups from the source; empty if they are complete.
faults() {
  local year=$1 unpacked=$work/unpacked
  diff -r "$work/src" "$work/dst/$year" 2>&1 | head -n 3
  rm -rf "$unpacked"
  "$native" x -o"$unpacked" "$work/dst/$year.zip" >/dev/null 2>&1 || say "$year.zip cannot be opened"
  diff -r "$work/src" "$unpacked" 2>&1 | head -n 3
}

rm -f "$(history_file)"
errors=0 created=0
for ((round = 0; round < rounds; ++round)); do
  year=$((2000 + round))
  for ((file = 0; file < files; ++file)); do
    head -c $((20000 + 1000 * file + round)) /dev/urandom >"$work/src/sub/$file"
  done
  find "$work/src" -type f -exec touch -d "$year-03-05 07:04:08 UTC" {} +
  pids=()
  for ((runner = 0; runner < runners; ++runner)); do
    LC_ALL=ja_JP.UTF-8 timeout --kill-after=10 120 wine "$qlm_run" --json --7z "$archiver" "$document" \
      </dev/null >"$out.$runner" 2>"$err.$runner" &
    pids+=($!)
  done
  codes=()
  for pid in "${pids[@]}"; do
    code=0
    wait "$pid" || code=$?
    codes+=("$code")
  done
  cat "$out".[0-9] >"$out"
  cat "$err".[0-9] >"$err"
  [[ ! $(faults $year) ]] || fail "round $round, exit codes ${codes[*]}: $(faults $year)"
  for code in "${codes[@]}"; do ((code <= 1)) || fail "round $round: exit code $code"; done
  for task in folder zip; do
    rows=$(json_rows | jq -c "select(.event == \"row\" and .task == \"$task\")")
    [[ $(wc -l <<<"$rows") == "$runners" ]] || fail "round $round: a runner reports nothing of $task"
    created=$((created + $(grep -c '"phase":439,' <<<"$rows" || true)))
    errors=$((errors + $(grep -vc '"error":0,' <<<"$rows" || true)))
  done
done
rm -f "$out".[0-9] "$err".[0-9]
((created >= 2 * rounds)) || fail "$created backups reported as created in $rounds rounds"
((errors == 0)) || fail "$errors errors"
[[ $(find "$work/dst" -mindepth 1 -maxdepth 1 | wc -l) == $((2 * rounds)) ]] || fail 'something is left beside the backups'
[[ $(jq -s 'map(.rows | length) | add' "$(history_file)") == $((2 * rounds * runners)) ]] || fail 'a run is missing in the history'
run_qlm --history --json
expect_code 0
expect_json event=history runs=$((rounds * runners)) damaged=0
expect_json event=task task=zip overdue=false
say "$created of $((2 * rounds * runners)) results are created backups, the others skipped"
echo PASS
