#!/usr/bin/env bash
# Writes a folder, a zip, a zip with a password and an AES-256 zip with the real archiver; a native program
# opens them. Then the archiver is missing, is killed while it works, and must end when the runner is killed.
source "$(dirname "$0")/lib.sh" archive

archiver=$(to_win "$(archiver_windows)")
native=$(archiver_native)
password='Passw0rd-!x'
src="$work/原稿 と blank"
mkdir -p "$src/深い/folder" "$work/settings"
head -c 300000 /dev/urandom >"$src/random.bin"
seq 1 20000 >"$src/深い/テキスト.txt"
: >"$src/深い/folder/empty"
echo hidden >"$src/表.tmp"
find "$src" -type f -exec touch -d '2016-03-05 07:04:08 UTC' {} +
printf '\xef\xbb\xbf- \\.tmp$\n' >"$work/filter.flt"
{
  echo '<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>'
  for kind in FOLDER: ZIP:.zip PASSWORD_ZIP:_p.zip AES_256_ZIP:_a.zip; do
    echo "<Dst><Folder>$(to_win "$work/dst")</Folder><Type>${kind%:*}</Type>"
    echo "<Pattern>&lt;ID&gt;_&lt;Y&gt;${kind#*:}</Pattern></Dst>"
  done
  echo "</Dsts><Tasks><Task><Id>書類</Id><Path>$(to_win "$src")</Path>"
  echo "<Dsts><Dst>0</Dst><Dst>1</Dst><Dst>2</Dst><Dst>3</Dst></Dsts>"
  echo "<FilterPath>$(to_win "$work/filter.flt")</FilterPath></Task></Tasks></QuillmoorDoc>"
} >"$work/doc.qlmr"
document=$(to_win "$work/doc.qlmr")
lists_before=$(lists)
expect_no_list() { [[ $(lists) == "$lists_before" ]] || fail 'a list file is left'; }

# Passes the password on standard input.
run_with_password() {
  code=0
  LC_ALL=ja_JP.UTF-8 timeout --kill-after=10 120 wine "$qlm_run" --password-stdin --json "$@" "$document" \
    <<<"$password" >"$out" 2>"$err" || code=$?
  ! grep -qF -- "$password" "$out" "$err" || fail 'the password was printed'
}

run_qlm --7z "$archiver" --settings "$(to_win "$work/none.config")" "$document"
expect_code 2
expect_err 'none.config'
run_qlm --7z "$archiver" "$document" # no password given
expect_code 2
expect_err 'zip パスワードが必要です'
expect_no_file "$work/dst"

run_with_password --7z "$archiver"
expect_code 0
for type in FOLDER ZIP PASSWORD_ZIP AES_256_ZIP; do expect_json type=$type phase=439 counted=3 excluded=1; done

rm "$src/表.tmp"
diff -r "$src" "$work/dst/書類_2016" || fail 'the folder copy differs'
declare -A method=([.zip]='Deflate|Store' [_p.zip]='ZipCrypto' [_a.zip]='AES-256')
for ending in .zip _p.zip _a.zip; do
  archive=$work/dst/書類_2016$ending
  "$native" x -p"$password" -o"$work/x$ending" "$archive" >/dev/null || fail "$archive cannot be opened"
  diff -r "$src" "$work/x$ending" || fail "the contents of $archive differ"
  [[ $(stat -c %Y "$work/x$ending/random.bin") == $(stat -c %Y "$src/random.bin") ]] || fail 'a time differs'
  listing=$("$native" l -slt -p"$password" "$archive" | grep '^Method = ' | sort -u)
  grep -qE "${method[$ending]}" <<<"$listing" || fail "$archive: $listing"
done
for ending in _p.zip _a.zip; do
  ! "$native" t -pwrong "$work/dst/書類_2016$ending" >/dev/null 2>&1 || fail 'a wrong password opens the archive'
done
expect_no_list

run_with_password --7z "$archiver"
expect_code 0
[[ $(json_rows | grep -c '"phase":440') == 4 ]] || fail 'the second run did not skip all'

# Archiver and password come from a settings file with a saved password.
config=$(<"$top/tests/host/golden/settings_default.config")
config=${config/'<SevenZipPath/>'/"<SevenZipPath>$archiver</SevenZipPath>"}
config=${config/'>EXEC_ONCE<'/'>SAVE<'}
config=${config/'<Password/>'/"<Password>$password</Password>"}
printf '%s\n' "$config" >"$work/saved.config"
find "$src" -type f -exec touch -d '2015-03-05 07:04:08 UTC' {} +
run_qlm --settings "$(to_win "$work/saved.config")" "$document"
expect_code 0
"$native" t -p"$password" "$work/dst/書類_2015_a.zip" >/dev/null || fail 'the saved password does not open it'

# The archiver is missing.
find "$src" -type f -exec touch -d '2017-03-05 07:04:08 UTC' {} +
run_with_password --7z "$(to_win "$work/none/7z.exe")"
expect_code 1
expect_json type=FOLDER phase=439
expect_json type=ZIP phase=438 error=58563
expect_no_file "$work/dst/書類_2017.zip"

# The archiver is killed while it compresses a large file.
head -c 60000000 /dev/urandom >"$src/large.bin"
find "$src" -type f -exec touch -d '2018-03-05 07:04:08 UTC' {} +
(kill -9 "$(await_archiver "$work/dst")") &
run_with_password --7z "$archiver"
wait $! || fail 'the archiver was not there to be killed'
expect_code 1
# A killed process reports exit code 0 or another, depending on the system.
json_rows | jq -es 'any(.[]; .type == "ZIP" and .phase == 438 and (.error == 480 or .error == 467))' \
  >/dev/null || fail 'no row of the failed archive'
expect_no_file "$work/dst/書類_2018.zip"
expect_no_file "$work/dst/書類_2018_p.zip"
expect_no_list

# The runner is killed while the archiver works.
find "$src" -type f -exec touch -d '2019-03-05 07:04:08 UTC' {} +
LC_ALL=ja_JP.UTF-8 wine "$qlm_run" --settings "$(to_win "$work/saved.config")" "$document" </dev/null >"$out" 2>"$err" &
runner=$!
await_archiver "$work/dst" >/dev/null || fail 'the archiver did not start'
kill -9 $runner
wait $runner 2>/dev/null || true
for ((waited = 0; waited < 500; ++waited)); do
  [[ $(archivers "$work/dst") ]] || break
  sleep 0.02
done
[[ ! $(archivers "$work/dst") ]] || fail 'the archiver does not end'
for archive in "$work"/dst/_tmp*_2019*.zip; do
  ! "$native" t "$archive" >/dev/null 2>&1 || fail 'the archiver has outlived the runner'
done
expect_no_file "$work/dst/書類_2019.zip"
rm -f $(comm -13 <(printf '%s\n' "$lists_before") <(lists)) # not deleted by the killed runner
echo PASS
