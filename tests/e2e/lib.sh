# Sourced by the end-to-end tests: runs the console program and checks the results.
#   source "$(dirname "$0")/lib.sh" NAME    creates the empty folder $work for the test NAME
# A test stops at the first failed expectation and ends with `echo PASS`.
# shellcheck shell=bash
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

qlm_run=${QLM_RUN:-$top/build/mingw/bin/QuillmoorRun.exe}
work=$top/build/e2e/${1:?name of the test}
out=$work.out # output of the last run; outside $work, so that it is not backed up
err=$work.err
code=0

rm -rf "$work" "$out" "$err"
mkdir -p "$work"
ensure_wine_prefix

fail() {
  say "FAIL: $*" >&2
  local file
  for file in "$out" "$err"; do
    [[ -s $file ]] && { say "--- ${file##*/}"; head -c 4000 "$file"; say; } >&2
  done
  exit 1
}

# Runs the console program for at most two minutes; after that its exit code is 124.
run_qlm() {
  code=0
  # timeout cannot call the shell function run_wine.
  LC_ALL=ja_JP.UTF-8 timeout --kill-after=10 120 wine "$qlm_run" "$@" </dev/null >"$out" 2>"$err" || code=$?
}

# Prints the archiver's list files in the temporary folder. A killed run may leave one.
lists() { find "$WINEPREFIX/drive_c/users/$(id -un)/Temp" -maxdepth 1 -name 'qlm*.txt' | sort; }

# Prints the ids of the processes whose command line contains the Windows form of a path, one per line. No
# match is not a failure.
processes_of() { pgrep -f -- "$(to_win "$1" | sed 's/[][\.*^$+?(){}|]/\\&/g')" || true; }

# Prints the archivers that write to this folder.
archivers() { processes_of "$1/_tmp"; }

# Prints the path of the history of runs.
history_file() {
  printf '%s\n' "$WINEPREFIX/drive_c/users/$(id -un)/AppData/Roaming/Tenkowa/Quillmoor/QuillmoorHistory.jsonl"
}

# Waits up to 40 s for an archiver that writes to this folder and prints its process id.
await_archiver() {
  local pid waited
  for ((waited = 0; waited < 2000; ++waited)); do
    pid=$(archivers "$1" | head -n 1)
    [[ $pid ]] && { say "$pid"; return; }
    sleep 0.02
  done
  return 1
}

expect_code() { [[ $code == "$1" ]] || fail "exit code $code, expected $1"; }
expect_file() { [[ -f $1 ]] || fail "no file $1"; }
expect_folder() { [[ -d $1 ]] || fail "no folder $1"; }
expect_no_file() { [[ ! -e $1 && ! -L $1 ]] || fail "unexpected $1"; }
expect_same() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }
expect_out() { grep -qF -- "$1" "$out" || fail "not printed: $1"; }
expect_err() { grep -qF -- "$1" "$err" || fail "not on the error output: $1"; }

# Prints every JSON object of the output, also nested ones, one per line. The output is one JSON text, or
# lines of which some are JSON.
json_rows() {
  jq -Rsc '(fromjson? // (split("\n")[] | fromjson?)) | .. | objects' "$out"
}

# expect_json FIELD=VALUE...: expects an object with all these fields. A.B is a nested field; numbers, true,
# false and null are compared as text.
expect_json() {
  json_rows | jq -es '
    def same($wanted):
      ($wanted | index("=")) as $at
      | ($wanted[:$at] | split(".")) as $path
      | (try (getpath($path) | tostring) catch null) == $wanted[$at + 1:];
    any(.[]; . as $row | all($ARGS.positional[]; . as $wanted | $row | same($wanted)))
  ' --args "$@" >/dev/null || fail "no row with $*"
}
