#!/usr/bin/env bash
# gui-run.sh PROGRAM ARGS...: runs a Windows program on a virtual screen and returns its exit code. QLM_SCREEN
# sets the size of the screen. QLM_DISPLAY (such as :81) uses an existing screen instead.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

(($# > 0)) || die "usage: gui-run.sh PROGRAM ARGS..."
ensure_wine_prefix

size=${QLM_SCREEN:-1366x768}

close_screen() {
  [[ -z ${screen-} ]] || kill "$screen" 2>/dev/null || true
  rm -rf "$folder"
}

# Xvfb chooses a free display and writes its number when it accepts connections.
open_screen() {
  mkfifo "$folder/display"
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$folder/display" >"$folder/log" 2>&1 &
  screen=$!
  read -r number <"$folder/display" || die "gui-run: no screen: $(<"$folder/log")"
  export DISPLAY=:$number
}

# Gives the program a Wine desktop of its own: windows get captions without a window manager, and no call
# waits for one. Unlike `explorer /desktop=...` this keeps the exit code.
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
# Wine's remaining processes must end before their screen does.
wineserver -k -w 2>/dev/null || true
exit $code
