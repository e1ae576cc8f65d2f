#!/usr/bin/env bash
# make_setup.sh FOLDER VERSION OUTPUT: makes a setup program that installs the content of FOLDER.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

(($# == 3)) || die "usage: make_setup.sh FOLDER VERSION OUTPUT"
folder=$(realpath "$1") version=$2 output=$(realpath -m "$3")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

to_backslashes() { printf '%s\n' "${1//\//\\}"; }

# Prints the files of the folder, without ./ in front.
list_files() { (cd "$folder" && find . -type f -printf '%P\n' | LC_ALL=C sort); }

# Prints the folders, each after its subfolders.
list_folders() { (cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r); }

size_kb() { find "$folder" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }'; }

# Prints the macros that setup.nsi expects.
print_macros() {
  local file
  say '!macro INSTALL_FILES'
  while read -r file; do
    say "  SetOutPath \"\$INSTDIR$([[ $file != */* ]] || to_backslashes "/${file%/*}")\""
    say "  File \"$folder/$file\""
  done < <(list_files)
  printf '%s\n' '!macroend' '!macro DELETE_FILES'
  while read -r file; do say "  Delete \"\$INSTDIR\\$(to_backslashes "$file")\""; done < <(list_files)
  while read -r file; do say "  RMDir \"\$INSTDIR\\$(to_backslashes "$file")\""; done < <(list_folders)
  printf '%s\n' '!macroend' '!macro GOTO_IF_INSTALLED FILE LABEL'
  while read -r file; do say "  StrCmp \${FILE} \"$(to_backslashes "$file")\" \${LABEL}"; done < <(list_files)
  say '!macroend'
}

# files.txt tells a newer setup program which files this version has. It lists itself, too.
: >"$folder/files.txt"
names=$(list_files)
to_backslashes "$names" | sed 's/$/\r/' >"$folder/files.txt"
print_macros >"$work/files.nsh"
"$top/packaging/make_side_image.py" "$top/res/icons/quillmoor.ico" "$work/side.bmp"
# Setup contains the times of these files.
touch -d "@${SOURCE_DATE_EPOCH:-0}" "$folder/files.txt" "$work/side.bmp"
icon=$(awk '$2 == "IDI_DOCUMENT" { print $3 }' "$top/res/control_ids.h")
identity=$(sed -nE 's/.*kAppIdentity\[\] = L"(.*)";/\1/p' "$top/src/platform/win32/app_identity.h")
mkdir -p "$(dirname "$output")"
cd "$top/packaging"
makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=$version" "-DSIZE_KB=$(size_kb)" \
  "-DDOCUMENT_ICON=$icon" "-DIDENTITY=$identity" "-DOUTPUT=$output" \
  "-DFILES=$work/files.nsh" "-DSIDE_IMAGE=$work/side.bmp" setup.nsi
