#!/usr/bin/env bash
# screenshots.sh [NAME...]: takes pictures of the windows into docs/screenshots; all of them without a name.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

"$top/scripts/setup.sh"
"$top/scripts/build.sh" mingw
mkdir -p "$top/docs/screenshots"
# Dialogs at 200 % want a large screen.
QLM_SCREEN=2560x1600 exec "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_screenshots.exe" \
  "$(to_win "$top/docs/screenshots")" "$@"
