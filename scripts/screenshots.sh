#!/usr/bin/env bash
# screenshots.sh [NAME...]: takes the given pictures of the windows, or all, into build/screenshots. The
# pictures that the documents use are copied to docs/screenshots by hand.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

"$top/scripts/setup.sh"
"$top/scripts/build.sh" mingw
ensure_wine_prefix
mkdir -p "$top/build/screenshots"
# The sample document uses the drives D and E.
drives=$(mktemp -d)
trap 'rm -rf "$drives" "$WINEPREFIX"/dosdevices/{d,e}:' EXIT
for drive in d e; do
  mkdir "$drives/$drive"
  ln -sfn "$drives/$drive" "$WINEPREFIX/dosdevices/$drive:"
done
# Dialogs at 200 % need a large screen.
QLM_SCREEN=2560x1600 "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_screenshots.exe" \
  "$(to_win "$top/build/screenshots")" "$@"
