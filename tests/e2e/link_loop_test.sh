#!/usr/bin/env bash
# A link to a parent folder is listed like a folder. The limit of 260 characters for a search pattern must end
# the loop after few entries.
source "$(dirname "$0")/lib.sh" link_loop

mkdir -p "$work/src/sub"
echo one >"$work/src/sub/file.txt"
ln -s .. "$work/src/sub/up"
source=$(to_win "$work/src")
cat >"$work/doc.qlmr" <<EOF
<QuillmoorDoc><Version>1.0.0.0</Version><Dsts/><Tasks>
<Task><Id>loop</Id><Path>$source</Path><Dsts/><FilterPath/></Task></Tasks></QuillmoorDoc>
EOF
run_qlm --test --json "$(to_win "$work/doc.qlmr")"
expect_code 0
# Each round through the loop adds "\sub\up" to the path and three entries: sub, file.txt, up.
rounds=$(((260 - ${#source}) / 7))
entries=$(jq -s '.[0].entries' "$out")
((entries > 3 && entries <= 3 * (rounds + 2))) || fail "$entries entries for at most $rounds rounds"
expect_err '読み取れなかったため、バックアップに含まれないフォルダーがあります'
say "a loop of one link: $entries entries, a source path of ${#source} characters"
echo PASS
