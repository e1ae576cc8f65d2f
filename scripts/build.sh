#!/usr/bin/env bash
# build.sh [PRESET...]: builds the given presets, by default mingw and host.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build() {
  local preset=$1 folder=$top/build/$1 started=$SECONDS
  local stamp=$folder/.configured
  # Ninja reconfigures when a CMake file changes, but not when the presets do.
  if [[ ! -e $folder/build.ninja || ! -e $stamp || $top/CMakePresets.json -nt $stamp ]]; then
    quietly cmake -S "$top" --preset "$preset" || die "build: cannot configure $preset"
    : >"$stamp"
  fi
  quietly ninja -C "$folder" --quiet || die "build: $preset failed"
  say "build: $preset done in $((SECONDS - started)) s"
}

"$top/scripts/setup.sh"
cd "$top"
(($#)) || set -- mingw host
for preset; do build "$preset"; done
