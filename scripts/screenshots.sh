#!/usr/bin/env bash
# screenshots.sh [NAME...]: takes pictures of the windows into build/screenshots; all of them without a name. Those
# that the documents show are kept in docs/screenshots.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

"$top/scripts/setup.sh"
"$top/scripts/build.sh" mingw
mkdir -p "$top/build/screenshots"
# Dialogs at 200 % want a large screen.
QLM_SCREEN=2560x1600 exec "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_screenshots.exe" \
  "$(to_win "$top/build/screenshots")" "$@"
