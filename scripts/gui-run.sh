#!/usr/bin/env bash
# gui-run.sh PROGRAM ARGS...: runs a Windows program on a screen of its own, or on the one that
# QLM_DISPLAY names (as :81), and ends with its exit code. QLM_SCREEN is the screen's size.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

(($# > 0)) || die "usage: gui-run.sh PROGRAM ARGS..."
ensure_wine_prefix

size=${QLM_SCREEN:-1280x900}

close_screen() {
  [[ -z ${screen-} ]] || kill "$screen" 2>/dev/null || true
  rm -rf "$folder"
}

# The server picks a free display itself, and writes its number once it takes programs.
open_screen() {
  mkfifo "$folder/display"
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$folder/display" >"$folder/log" 2>&1 &
  screen=$!
  read -r number <"$folder/display" || die "gui-run: no screen: $(<"$folder/log")"
  export DISPLAY=:$number
}

# A desktop of Wine's own for this program: windows get captions without a window manager, and nothing waits
# for the answers of one. Unlike `explorer /desktop=...` it lets the exit code through.
give_desktop() {
  local key='HKCU\Software\Wine'
  run_wine reg add "$key\\AppDefaults\\$(basename "$1")\\Explorer" /v Desktop /d qlm /f >/dev/null 2>&1
  run_wine reg add "$key\\Explorer\\Desktops" /v qlm /d "$size" /f >/dev/null 2>&1
}

if [[ ${QLM_DISPLAY-} ]]; then
  export DISPLAY=$QLM_DISPLAY
  give_desktop "$1"
  run_wine "$@"
  exit
fi
folder=$(mktemp -d)
trap close_screen EXIT
open_screen
give_desktop "$1"
code=0
run_wine "$@" || code=$?
# What Wine leaves running would go with its screen half-way.
wineserver -k -w 2>/dev/null || true
exit $code
