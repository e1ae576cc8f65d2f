#!/usr/bin/env bash
# Another process replaces a source folder by a link to a folder elsewhere, while the folder is copied and while
# it is archived. This file system does not keep it from doing so. No backup may contain a file from there.
source "$(dirname "$0")/lib.sh" source_race

archiver=$(to_win "$(archiver_windows)")

# Creates the source, and files of the same names elsewhere.
reset() {
  local file
  rm -rf "${work:?}"/*
  mkdir -p "$work/src/sub/deep" "$work/elsewhere/deep" "$work/dst"
  for ((file = 0; file < 120; ++file)); do
    printf '%0200000d' "$file" >"$work/src/sub/deep/$file"
    echo secret >"$work/elsewhere/deep/$file"
  done
  cp "$work/src/sub/deep/"* "$work/src/sub"
  cp "$work/elsewhere/deep/"* "$work/elsewhere"
}

# Writes a document with one destination of the given type and name.
write_document() {
  cat >"$work/doc.qlmr" <<EOF
<QuillmoorDoc><Version>1.0.0.0</Version>
<Dsts><Dst><Folder>$(to_win "$work/dst")</Folder><Type>$1</Type><Pattern>$2</Pattern></Dst></Dsts>
<Tasks><Task><Id>t</Id><Path>$(to_win "$work/src")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task></Tasks>
</QuillmoorDoc>
EOF
}

# Replaces a folder by a link once the path, a file or a folder of at least ten files, exists.
swap_once_there() { # PATH FOLDER AWAY TARGET
  exec timeout 60 python3 - "$@" <<'EOF'
import os, sys, time
path, folder, away, target = sys.argv[1:]
while not os.path.isfile(path) and sum(len(files) for _, _, files in os.walk(path)) < 10:
    time.sleep(0.001)
os.rename(folder, away)
os.symlink(target, folder)
EOF
}

# Repeats the run until the folder is replaced before it ends.
swap_during_run() { # TYPE NAME PATH FOLDER TARGET
  local attempt swapper
  for ((attempt = 0; attempt < 20; ++attempt)); do
    reset
    write_document "$1" "$2"
    swap_once_there "$work/dst/_tmp_$3" "$work/$4" "$work/away" "$work/$5" &
    swapper=$!
    run_qlm --7z "$archiver" --json "$(to_win "$work/doc.qlmr")"
    kill "$swapper" 2>/dev/null || true
    wait "$swapper" || true
    if grep -rqs secret "$work/dst/$2"; then fail 'a backup has a file from elsewhere'; fi
    [[ ! -L $work/$4 || -e $work/dst/$2 ]] || break
  done
  [[ -L $work/$4 ]] || fail 'the folder was not replaced'
  expect_code 1
  expect_no_file "$work/dst/$2"
  if grep -qF 'リンクに置き換わりました' "$out"; then ((++told)); fi
}

told=0
swap_during_run FOLDER copy copy src elsewhere
swap_during_run FOLDER copy copy src/sub elsewhere
swap_during_run FOLDER copy copy/sub/deep src/sub/deep elsewhere/deep
# A file may be missing at the moment of the replacement, which then is the error.
((told >= 2)) || fail "$told runs have told of the link"
swap_during_run ZIP archive.zip archive.zip src/sub elsewhere

# A link that is there when listed is followed.
run_qlm --7z "$archiver" --json "$(to_win "$work/doc.qlmr")"
expect_code 0
echo PASS
