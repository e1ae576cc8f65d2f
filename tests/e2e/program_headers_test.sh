#!/usr/bin/env bash
# The programs load no library from their own folder, are protected as the linker and compiler can, and all that is
# linked into them is named in the notices.
source "$(dirname "$0")/lib.sh" program_headers

# The system loads these from its own folders only (its "known DLLs", ntdll, and comctl32 by the manifest).
known='advapi32|comctl32|comdlg32|gdi32|gdiplus|kernel32|msvcrt|ntdll|ole32|oleaut32|shell32|user32'
notices=$(sed -n 's/^Part: //p' "$top/packaging/THIRD_PARTY.txt")
build=$top/build/mingw

is_named() { grep -qxF -- "$1" <<<"$notices" || fail "not named in the notices: $1"; }

for program in Quillmoor QuillmoorRun; do
  headers=$(x86_64-w64-mingw32-objdump -p "$build/bin/$program.exe")
  imports=$(sed -n 's/.*DLL Name: //p' <<<"$headers")
  [[ $imports ]] || fail "$program: no import table"
  unknown=$(grep -viE "^($known)\.dll$" <<<"$imports" || true)
  [[ ! $unknown ]] || fail "$program imports $unknown: load it with my::SystemFunction"
  for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
    grep -qw "$flag" <<<"$headers" || fail "$program lacks $flag"
  done
  # Without relocations the system cannot move the program.
  x86_64-w64-mingw32-objdump -h "$build/bin/$program.exe" | grep -qw '\.reloc' || fail "$program cannot be moved"
  # The libraries of the compiler are built without the check.
  checked=$(x86_64-w64-mingw32-objdump -d "$build/bin/$program.exe" | grep -c 'call.*<__stack_chk_fail>' || true)
  ((checked > 100)) || fail "$program: $checked functions check their stack"

  archives=$(sed -nE 's,^(/[^ ]*/)?([^ /]+\.a)\(.*,\2,p' "$build/$program.map" | grep -v '^libqlm_' | sort -u)
  [[ $archives ]] || fail "$program: no archive in the map"
  for archive in $archives; do
    # Archives of imports contain no code but jumps into a library of the system.
    [[ $archive =~ ^lib($known)\.a$ ]] && [[ $archive != libmsvcrt.a ]] || is_named "$archive"
  done
done
for folder in "$build"/third_party/*; do is_named "${folder##*/}"; done
echo PASS
