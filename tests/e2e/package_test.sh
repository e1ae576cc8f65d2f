#!/usr/bin/env bash
# The packages are the same when made twice. Setup installs, upgrades and removes the programs without a trace and
# never replaces a program in use; the portable programs load nothing from their folder.
source "$(dirname "$0")/lib.sh" package

packages=$top/build/package
version=$(sed -nE 's/^project\(Quillmoor VERSION ([0-9.]+) .*/\1/p' "$top/CMakeLists.txt")
name=Quillmoor-$version

# A prefix of its own, created again after a failed test. Wine would put start menu entries into the home folder.
export WINEPREFIX=$top/build/package_prefix WINEDLLOVERRIDES=winemenubuilder.exe=d
[[ -e $WINEPREFIX/.clean ]] || rm -rf "$WINEPREFIX"
ensure_wine_prefix
rm -f "$WINEPREFIX/.clean"
user=$WINEPREFIX/drive_c/users/$(id -un)
installed=$user/AppData/Local/Programs/Quillmoor
for_all="$WINEPREFIX/drive_c/Program Files/Quillmoor"
settings=$user/AppData/Roaming/Tenkowa/Quillmoor/Quillmoor32.config

run_windows() { # CODE PROGRAM ARGS...: runs the program and expects the exit code
  code=0
  LC_ALL=ja_JP.UTF-8 timeout --kill-after=10 120 wine "${@:2}" </dev/null >"$out" 2>"$err" || code=$?
  [[ $code == "$1" ]] || fail "${*:2}: exit code $code"
}

# The uninstaller runs on as a copy of itself.
uninstall() { # FOLDER ARGS...
  run_windows 0 "$1/uninstall.exe" /S "${@:2}"
  wineserver -w
}

# Prints registry and disk without times, what Wine changes itself, and temporary files.
state() {
  wineserver -w
  awk '/^\[/ { key = $0; sub(/ [0-9]+$/, "", key); skip = key ~ /^\[(System|Console)|Wine|Windows NT/; if (!skip) print key }
    !/^(\[|#|$)/ && !skip { print key, $0 }' "$WINEPREFIX"/{user,system}.reg
  find "$WINEPREFIX/drive_c" -not -path '*/Temp/*' | sort
}

expect_registry() { # KEY VALUE DATA
  local which=(/ve)
  [[ ! $2 ]] || which=(/v "$2")
  run_windows 0 reg query "HKCU\\Software\\$1" "${which[@]}"
  expect_out "$3"
}

open_screen() {
  mkfifo "$work/display"
  Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$work/display" >"$work/screen.log" 2>&1 &
  trap 'kill %1; wineserver -k || true' EXIT
  read -r number <"$work/display"
  export DISPLAY=:$number
}

open_screen
"$top/scripts/package.sh" >"$work/sums"
"$top/scripts/package.sh" | diff "$work/sums" - || fail 'the packages differ when made again'
pictures=$(find "$packages/$name/manual" -name '*.png' -printf '%s\n' | awk '{ sum += $1 } END { print sum + 0 }')
(($(stat -c %s "$packages/$name-setup.exe") - pictures < 3000000)) || fail 'setup is above 3 MB without pictures'

# An older version with a file that the newer one has no more.
cp -r "$packages/$name" "$work/older"
echo old >"$work/older/manual/old.html"
"$top/packaging/make_setup.sh" "$work/older" 0.9.0 "$work/older.exe"

run_windows 0 reg add 'HKLM\Software\Classes\.flt' /d Other.Filter /f
run_windows 0 reg add 'HKCU\Software\Classes' /f # every user has it on Windows
state >"$work/before"

run_windows 0 "$work/older.exe" /S
expect_file "$installed/manual/old.html"
LC_ALL=ja_JP.UTF-8 wine "$installed/Quillmoor.exe" >/dev/null 2>&1 &
# The window may not exist yet; setup asks it to close, and it saves the settings.
for ((i = 0; i < 3; ++i)); do
  code=0
  LC_ALL=ja_JP.UTF-8 timeout 120 wine "$packages/$name-setup.exe" /S || code=$?
  ((code == 3)) || break
done
expect_code 0
expect_file "$settings"
expect_no_file "$installed/manual/old.html"
diff <(cd "$packages/$name" && find . -type f | sort) \
  <(cd "$installed" && find . -type f -not -name uninstall.exe | sort) || fail 'other files than those of the package'
run_windows 0 "$installed/QuillmoorRun.exe" --version
expect_out "$version"
uninstall_key='Microsoft\Windows\CurrentVersion\Uninstall\Quillmoor'
expect_registry "$uninstall_key" DisplayVersion "$version"
expect_registry "$uninstall_key" EstimatedSize 0x
expect_registry 'Microsoft\Windows\CurrentVersion\App Paths\QuillmoorRun.exe' '' QuillmoorRun.exe
expect_registry 'Classes\.qlmr' '' Quillmoor.Document
run_windows 0 reg query 'HKCR\.flt' /ve
expect_out Other.Filter
expect_registry 'Classes\.flt\OpenWithProgids' Quillmoor.Filter ''
expect_registry 'Classes\Quillmoor.Document\shell\open\command' '' '\Quillmoor.exe" "%1"'
expect_registry 'Classes\Quillmoor.Document' AppUserModelID Tenkowa.Quillmoor
expect_registry 'Classes\Quillmoor.Filter\shell\check\command' '' '\Quillmoor.exe" "--check-filter=%1"'
QLM_PROGRAM=$(cd "$installed" && winepath -w Quillmoor.exe) \
  run_windows 0 "$top/build/mingw/bin/qlm_gui_tests.exe" --gtest_filter=Program.f1_opens_the_manual_beside_it

# A runner that waits for its password is not replaced.
cat >"$work/doc.qlmr" <<END
<QuillmoorDoc><Version>1.0.0.0</Version><Dsts><Dst><Folder>$(to_win "$work")</Folder><Type>AES_256_ZIP</Type>
<Pattern>&lt;Y&gt;.zip</Pattern></Dst></Dsts><Tasks><Task><Id>a</Id><Path>$(to_win "$work/older/manual")</Path>
<Dsts><Dst>0</Dst></Dsts><FilterPath/></Task></Tasks></QuillmoorDoc>
END
mkfifo "$work/password"
LC_ALL=ja_JP.UTF-8 wine "$installed/QuillmoorRun.exe" --password-stdin --7z "$(to_win "$(archiver_windows)")" \
  "$(to_win "$work/doc.qlmr")" <"$work/password" >"$work/run.log" 2>&1 &
runner=$!
exec 4>"$work/password"
timeout 30 bash -c 'until pgrep -x QuillmoorRun.ex; do sleep 0.1; done' >/dev/null || fail 'the runner does not start'
run_windows 3 "$packages/$name-setup.exe" /S
echo secret >&4
exec 4>&-
wait "$runner" || fail "the run failed: $(<"$work/run.log")"

# The command line of a schedule.
sed 's/AES_256_ZIP/FOLDER/; s/\.zip//' "$work/doc.qlmr" >"$work/scheduled.qlmr"
run_windows 0 "$installed/QuillmoorRun.exe" --scheduled "$(to_win "$work/scheduled.qlmr")"
[[ -f $(echo "$work"/20??/index.html) ]] || fail 'the scheduled run made no backup'

uninstall "$installed" /SETTINGS '/APPDATA=C:\users\other' # the settings meant are those of another account
expect_file "$settings"
run_windows 0 "$packages/$name-setup.exe" /S /ALLUSERS
expect_file "$for_all/QuillmoorRun.exe"
run_windows 0 reg query "HKLM\\Software\\$uninstall_key"
uninstall "$for_all" /SETTINGS
state | diff "$work/before" - || fail 'something is left'

# Libraries with the names of those that are loaded later, as in a folder of downloads. version, uxtheme and
# windowscodecs are not among them, because libraries of Wine import them.
portable="$work/ダウンロード フォルダー"
mkdir "$portable"
python3 -m zipfile -e "$packages/$name-portable.zip" "$portable"
for library in dwmapi powrprof cryptbase profapi msxml6; do
  echo 'no library' >"$portable/$name/$library.dll"
done
run_windows 0 "$portable/$name/QuillmoorRun.exe" --test "$(to_win "$work/doc.qlmr")"
LC_ALL=ja_JP.UTF-8 wine "$portable/$name/Quillmoor.exe" >/dev/null 2>&1 &
for ((i = 0; i < 20; ++i)); do
  [[ ! -e $settings ]] || break
  sleep 0.5
  LC_ALL=ja_JP.UTF-8 wine taskkill /im Quillmoor.exe >/dev/null 2>&1 || true # posts WM_CLOSE
done
expect_file "$settings"
wait $! || fail 'the portable program'
rm -r "$user/AppData/Roaming/Tenkowa"
: >"$WINEPREFIX/.clean"
echo PASS
