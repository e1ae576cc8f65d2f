#!/usr/bin/env bash
# Ctrl+C during a run of five tasks.
source "$(dirname "$0")/lib.sh" stop

mkdir -p "$work/src"
for ((file = 0; file < 350; ++file)); do printf '%040000d' "$file" >"$work/src/$file"; done
{
  echo '<QuillmoorDoc><Version>1.0.0.0</Version><Dsts><Dst>'
  echo "<Folder>$(to_win "$work/dst")</Folder><Type>FOLDER</Type><Pattern>&lt;ID&gt;</Pattern></Dst></Dsts><Tasks>"
  for id in 1 2 3 4 5; do
    echo "<Task><Id>$id</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task>"
  done
  echo '</Tasks></QuillmoorDoc>'
} >"$work/doc.qlmr"

# Job control is needed: without it the shell starts background commands with Ctrl+C ignored.
set -m
LC_ALL=ja_JP.UTF-8 timeout --foreground --kill-after=10 60 wine "$qlm_run" --json "$(to_win "$work/doc.qlmr")" \
  </dev/null >"$out" 2>"$err" &
pid=$!
for ((waited = 0; waited < 2000; ++waited)); do
  [[ -e $work/dst/_tmp_2 ]] && break
  sleep 0.005
done
pkill -INT -P $pid || fail 'the runner was not there to be stopped'
code=0
wait $pid || code=$?
expect_code 3
# The runner checks for Ctrl+C every 100 ms, so the second or a later task is stopped.
stopped=$(json_rows | jq -s '[.[] | select(.event == "row")] | length')
((stopped >= 2 && stopped <= 5)) || fail "$stopped rows"
expect_json event=row task=$stopped error=58558
expect_json event=end state=374 rows=$stopped errors=1
for ((id = 1; id < stopped; ++id)); do
  expect_json event=row task=$id phase=439 error=0
  diff -r "$work/src" "$work/dst/$id" >/dev/null || fail 'what bears a final name is incomplete'
done
for ((id = stopped; id <= 5; ++id)); do expect_no_file "$work/dst/$id"; done
expect_no_file "$work/dst/_tmp_$((stopped + 1))"
pgrep -f "$work/doc.qlmr" >/dev/null && fail 'a process is left'
[[ ! $(processes_of "$work/doc.qlmr") ]] || fail 'a process is left'
echo PASS
