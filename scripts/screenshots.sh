#!/usr/bin/env bash
# screenshots.sh [--english] [NAME...]: takes the given pictures of the windows, or all, into
# build/screenshots; with English texts into build/screenshots/english. The pictures that the documents and
# the manual use are copied to docs/screenshots and manual/pictures by hand.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

"$top/scripts/setup.sh"
"$top/scripts/build.sh" mingw
ensure_wine_prefix
folder=$top/build/screenshots
[[ ${1-} == --english ]] && folder+=/english
mkdir -p "$folder"
# The sample document uses the drives D and E.
drives=$(mktemp -d)
trap 'rm -rf "$drives" "$WINEPREFIX"/dosdevices/{d,e}:' EXIT
for drive in d e; do
  mkdir "$drives/$drive"
  ln -sfn "$drives/$drive" "$WINEPREFIX/dosdevices/$drive:"
done
# Dialogs at 200 % need a large screen.
QLM_SCREEN=2560x1600 "$top/scripts/gui-run.sh" "$top/build/mingw/bin/qlm_screenshots.exe" \
  "$(to_win "$folder")" "$@"
