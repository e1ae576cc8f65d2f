#!/usr/bin/env bash
# A document as written by hand in an editor: Japanese IDs, a filter, a missing source, and a file with the
# name of a backup folder.
source "$(dirname "$0")/lib.sh" handwritten_document

src=$work/原稿 dst1=$work/dst1 dst2=$work/dst2
mkdir -p "$src/古い" "$src/写真" "$dst1" "$dst2"
echo one >"$src/メモ.txt"
echo two >"$src/写真/海.jpg"
echo old >"$src/古い/下書き.txt"
echo tmp >"$src/写真/cache.tmp"
find "$src" -type f -exec touch -d '2016-03-05 07:04:09 UTC' {} +
touch -d '2020-01-01 00:00:00 UTC' "$src/写真/cache.tmp" # excluded, so it is not the newest file
printf '\xef\xbb\xbf# 一時ファイルと古いもの\r\n- \\.tmp$\r\n- ^古い/$\r\n' >"$work/除外.flt"
echo in the way >"$dst2/衝突_2020"

cat >"$work/文書.qlmr" <<EOF
<?xml version="1.0" encoding="utf-8"?>
<QuillmoorDoc>
  <Version>1.0.0.0</Version>
  <Dsts>
    <Dst><Folder>$(to_win "$dst1")</Folder><Type>FOLDER</Type><Pattern>&lt;ID&gt;_&lt;Y&gt;_&lt;M&gt;_&lt;D&gt;</Pattern></Dst>
    <Dst>
      <Folder>$(to_win "$dst2")\\</Folder>
      <Type>FOLDER</Type>
      <Pattern>&lt;id&gt;_&lt;Y4&gt;</Pattern>
    </Dst>
  </Dsts>
  <Tasks>
    <Task><Id>書類</Id><Path>$(to_win "$src")</Path><Dsts><Dst>0</Dst><Dst>1</Dst></Dsts>
          <FilterPath>$(to_win "$work/除外.flt")</FilterPath></Task>
    <Task><Id>なし</Id><Path>$(to_win "$work/無い")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath></FilterPath></Task>
    <Task><Id>衝突</Id><Path>$(to_win "$src")</Path><Dsts><Dst>1</Dst><Dst>0</Dst></Dsts><FilterPath></FilterPath></Task>
  </Tasks>
</QuillmoorDoc>
EOF
document=$(to_win "$work/文書.qlmr")

run_qlm --test --json "$document"
expect_code 1
expect_json task=書類 phase=436 error=0 entries=5 counted=2 excluded=2 newest=2016-03-05T07:04:09Z
expect_no_file "$dst1/書類_2016_03_05"

run_qlm --plan --json "$document"
expect_code 1
expect_json event=task task=書類 counted=2 bytes=8
expect_json event=cell task=書類 action=create space=enough "destination=$(to_win "$dst1/書類_2016_03_05")"
expect_json event=cell task=なし action=error error=465
expect_json event=cell task=衝突 action=collision error=462
expect_json event=cell task=衝突 action=not_reached
expect_json event=advice kind=no_source task=なし
expect_json event=end created=2 skipped=0 errors=2 not_reached=1
[[ $(find "$dst1" "$dst2" | wc -l) == 3 ]] || fail "the plan created something"

run_qlm --json "$document"
expect_code 1
expect_json event=row task=書類 type=FOLDER phase=439 error=0 "destination=$(to_win "$dst1/書類_2016_03_05")"
expect_json event=row task=書類 phase=439 "destination=$(to_win "$dst2/書類_2016")"
expect_json event=row task=なし phase=435 error=465 newest=null entries=0
expect_json event=row task=衝突 phase=436 error=462
expect_json event=end state=375 rows=4 errors=2
expect_same "$src/メモ.txt" "$dst1/書類_2016_03_05/メモ.txt"
expect_same "$src/写真/海.jpg" "$dst2/書類_2016/写真/海.jpg"
expect_no_file "$dst1/書類_2016_03_05/写真/cache.tmp"
expect_no_file "$dst1/書類_2016_03_05/古い"
expect_no_file "$dst1/衝突_2020_01_01" # the destinations after a failed one are not attempted
[[ $(<"$dst2/衝突_2020") == 'in the way' ]] || fail "the file in the way was touched"
[[ $(find "$work" -name '_tmp*') == '' ]] || fail "a temporary name is left"

run_qlm --task 書類 "$document"
expect_code 0
expect_out "書類 | $(to_win "$dst1/書類_2016_03_05") | 正常終了 - 更新されていないためスキップされました"
expect_out '正常終了 - 結果 2 件、エラー 0 件'

run_qlm --task 知らない "$document"
expect_code 2
expect_err '指定された ID のタスクがありません: 知らない'
run_qlm "$(to_win "$work/無い.qlmr")"
expect_code 2
expect_err '無い.qlmr'
run_qlm --json
expect_code 2
[[ ! -s $out ]] || fail "a usage error printed to standard output"
echo PASS
