#!/usr/bin/env bash
# The destination fills up: the row must report it, and no final name may exist.
source "$(dirname "$0")/lib.sh" disk_full

mkdir -p "$work/src" "$work/small"
if ! mount -t tmpfs -o size=1m tmpfs "$work/small" 2>/dev/null; then
  say "mounting a small disk is not permitted here"
  exit 77
fi
trap 'umount "$work/small"' EXIT
mkdir "$work/small/dst"
head -c 600000 /dev/zero >"$work/src/a.bin"
cp "$work/src/a.bin" "$work/src/b.bin"
cat >"$work/doc.qlmr" <<EOF
<QuillmoorDoc><Version>1.0.0.0</Version>
<Dsts><Dst><Folder>$(to_win "$work/small/dst")</Folder><Type>FOLDER</Type><Pattern>full</Pattern></Dst>
<Dst><Folder>$(to_win "$work/small/dst")</Folder><Type>FOLDER</Type><Pattern>later</Pattern></Dst></Dsts>
<Tasks><Task><Id>t</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>0</Dst><Dst>1</Dst></Dsts><FilterPath/></Task></Tasks>
</QuillmoorDoc>
EOF
run_qlm --json "$(to_win "$work/doc.qlmr")"
expect_code 1
expect_json event=row phase=437 error=58588
expect_out 0x80070070
expect_json event=end rows=1 errors=1
expect_no_file "$work/small/dst/full"
expect_no_file "$work/small/dst/later"
echo PASS
