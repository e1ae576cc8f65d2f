#!/usr/bin/env bash
# The display language of the system decides about the texts: Japanese, or English for every other language.
source "$(dirname "$0")/lib.sh" language

expect_help() { # LOCALE TEXT
  LC_ALL=$1 timeout --kill-after=10 120 wine "$qlm_run" --help </dev/null >"$out" 2>"$err" || fail "no help"
  grep -qF -- "$2" "$out" || fail "$1: no '$2' in the help"
}

expect_help ja_JP.UTF-8 'バージョンを表示します'
expect_help C.UTF-8 'Shows the version'
echo PASS
