#!/usr/bin/env bash
# The runner is killed at 50 random moments of a copy. A final name must then be complete, and the next run
# must succeed. The history has every run that was not killed.
source "$(dirname "$0")/lib.sh" kill

kills=50 folders=8 files=50
for ((folder = 0; folder < folders; ++folder)); do
  mkdir -p "$work/src/$folder"
  for ((file = 0; file < files; ++file)); do printf '%04000d' "$file" >"$work/src/$folder/$file"; done
done
find "$work/src" -type f -exec touch -d '2016-03-05 07:04:09 UTC' {} +
cat >"$work/doc.qlmr" <<EOF
<QuillmoorDoc><Version>1.0.0.0</Version>
<Dsts><Dst><Folder>$(to_win "$work/dst")</Folder><Type>FOLDER</Type><Pattern>copy_&lt;Y&gt;</Pattern></Dst></Dsts>
<Tasks><Task><Id>t</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task></Tasks>
</QuillmoorDoc>
EOF
document=$(to_win "$work/doc.qlmr")
final=$work/dst/copy_2016

check_final() { [[ ! -e $final ]] || diff -r "$work/src" "$final" >/dev/null || fail "$final is incomplete"; }

milliseconds() { date +%s%3N; }

# Starts the runner and waits for the copy to begin.
start_copy() {
  rm -rf "$work/dst"
  LC_ALL=ja_JP.UTF-8 wine "$qlm_run" --quiet "$document" </dev/null >/dev/null 2>&1 &
  pid=$!
  local waited=0
  while [[ ! -e $work/dst/_tmp_copy_2016 && ! -e $final ]] && ((++waited < 2000)); do sleep 0.002; done
}

rm -f "$(history_file)"
run_qlm --quiet "$document" # warm-up
expect_code 0
start_copy
began=$(milliseconds)
wait $pid
length=$(($(milliseconds) - began))
RANDOM=20161105
interrupted=0 complete=2
for ((i = 0; i < kills; ++i)); do
  start_copy
  sleep "$(printf '%d.%03d' 0 $((RANDOM % (length * 5 / 4))))"
  kill -9 $pid 2>/dev/null || true
  wait $pid 2>/dev/null || true
  check_final
  [[ -e $final ]] || ((++interrupted))
  if ((i % 5 == 0)); then
    run_qlm --json "$document"
    expect_code 0
    ((++complete))
    check_final
    expect_folder "$final"
  fi
done
((interrupted >= kills / 4)) || fail "only $interrupted of $kills kills came before the end of the copy"
run_qlm --json "$document"
expect_code 0
expect_folder "$final"
check_final
run_qlm --history --json
expect_code 0
recorded=$(json_rows | jq 'select(.event == "history") | .runs')
((recorded > complete)) || fail "$recorded runs in the history, expected more than $complete"
say "$interrupted of $kills kills interrupted a copy of $length ms"
echo PASS
