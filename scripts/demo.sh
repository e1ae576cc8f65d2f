#!/usr/bin/env bash
# Shows the runner at work: a sample tree and document, a test run, and three runs with their backups.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

"$top/scripts/build.sh" mingw
ensure_wine_prefix
archiver=$(to_win "$(archiver_windows)")

demo=$top/build/demo
rm -rf "$demo"
mkdir -p "$demo/原稿/写真" "$demo/バックアップ"
echo '見積書の下書き' >"$demo/原稿/見積書.txt"
echo '請求書' >"$demo/原稿/請求書.txt"
echo 'JPEG' >"$demo/原稿/写真/富士山.jpg"
echo '作業中' >"$demo/原稿/写真/cache.tmp"
find "$demo/原稿" -type f -exec touch -d '2026-04-01 09:30:00' {} +
printf '\xef\xbb\xbf# 一時ファイルは除く\n- \\.tmp$\n' >"$demo/除外.flt"
cat >"$demo/文書.qlmr" <<EOF
<?xml version="1.0" encoding="utf-8"?>
<QuillmoorDoc>
  <Version>1.0.0.0</Version>
  <Dsts>
    <Dst><Folder>$(to_win "$demo/バックアップ")</Folder><Type>FOLDER</Type>
         <Pattern>&lt;ID&gt;_&lt;Y&gt;_&lt;M&gt;_&lt;D&gt;_&lt;h&gt;_&lt;m&gt;</Pattern></Dst>
    <Dst><Folder>$(to_win "$demo/バックアップ")</Folder><Type>ZIP</Type>
         <Pattern>&lt;ID&gt;_&lt;Y&gt;_&lt;M&gt;_&lt;D&gt;_&lt;h&gt;_&lt;m&gt;.zip</Pattern></Dst>
  </Dsts>
  <Tasks>
    <Task><Id>書類</Id><Path>$(to_win "$demo/原稿")</Path><Dsts><Dst>0</Dst><Dst>1</Dst></Dsts>
          <FilterPath>$(to_win "$demo/除外.flt")</FilterPath></Task>
    <Task><Id>写真</Id><Path>$(to_win "$demo/原稿/写真")</Path><Dsts><Dst>0</Dst></Dsts><FilterPath></FilterPath></Task>
  </Tasks>
</QuillmoorDoc>
EOF

run() {
  say "$ QuillmoorRun.exe $* 文書.qlmr"
  run_wine "$top/build/mingw/bin/QuillmoorRun.exe" --7z "$archiver" "$@" "$(to_win "$demo/文書.qlmr")"
  say
}

say
say '--- 一覧だけ: 何も作成しません'
run --test
say '--- 1 回目: すべて作成されます'
run
(cd "$demo/バックアップ" && find . -type f | sort)
say
say '--- 2 回目: 更新されていないのでスキップされます'
run
say '--- 写真を 1 枚変更してから 3 回目: 両方のタスクに新しいバックアップができます'
touch -d '2026-04-02 18:00:00' "$demo/原稿/写真/富士山.jpg"
run
(cd "$demo/バックアップ" && ls)
stop_wine_server
