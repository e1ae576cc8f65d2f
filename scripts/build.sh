#!/usr/bin/env bash
# build.sh [PRESET...]: builds the presets, mingw and host unless named.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# Runs a command, and shows what it printed only if it failed.
quietly() {
  local output
  output=$("$@" 2>&1) || { printf '%s\n' "$output" >&2; return 1; }
}

build() {
  local preset=$1 folder=$top/build/$1 started=$SECONDS
  local stamp=$folder/.configured
  # Ninja configures again after changes of CMake files, but does not know the presets.
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
