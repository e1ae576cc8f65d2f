#!/usr/bin/env bash
# lint.sh: checks include order, places of OS names and texts, format and clang-tidy.
# lint.sh --self-test: violates every rule once in a temporary tree and expects every finding.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# Every check prints findings as "file:line: text", with file names relative to this folder.
tree=$top

# Prints the matching files, sorted, including files not yet added to git.
files() { # FOLDERS... -- FIND-EXPRESSION...
  local folders=()
  while [[ $1 != -- ]]; do
    [[ -e $tree/$1 ]] && folders+=("$1")
    shift
  done
  shift
  ((${#folders[@]})) || return 0
  (cd "$tree" && find "${folders[@]}" \
    \( -name .git -o -name node_modules -o -path ./build -o -name .cache \) -prune -o \
    -type f \( "$@" \) -print | sed 's,^\./,,' | sort)
}
cpp_files() { files "$@" -- -name '*.cpp' -o -name '*.h'; }

# Searches the files named on standard input. No match is not a failure.
search() { # GREP-ARGS...
  (cd "$tree" && LC_ALL=C.UTF-8 xargs -r -d '\n' grep -InH "$@") || true
}

# Replaces the text of each search hit (file:line:text) with the rule.
report() { sed -E "s|^([^:]+:[0-9]+):.*|\1: $1|"; }

# Puts the rule in front of the text of each search hit.
report_text() { sed -E "s|^([^:]+:[0-9]+):[[:space:]]*(.*)|\1: $1: \2|"; }

may_use_windows='^(src/platform/win32/|src/ui/(?!models/|framework/list_model\.)|src/run/main\.cpp|tests/(wine|gui)/|bench/)'

check_floors() {
  cpp_files src | search -E '^\s*#\s*include\s*"' | awk -F: '
    BEGIN {
      split("support 0 platform 1 document 2 replace 3 settings 3 engine 4 history 5 schedule 5 app 6 ui 7 run 7", f, " ")
      for (i = 1; i in f; i += 2) floor[f[i]] = f[i + 1]
      split("framework 1 models 2 look 3 dialogs 4 main_window 5", r, " ")
      for (i = 1; i in r; i += 2) room[r[i]] = r[i + 1]
    }
    function finding(what) { print $1 ":" $2 ": " what }
    # src/ui: the entry files include every room, a room only itself and the rooms before it. The framework
    # knows nothing of the program. The models include only the part of the framework without OS headers.
    function check_room(own_room, to) {
      if (!(own_room in room)) {
        if (own_room !~ /^(main|program)\.(h|cpp)$/) finding("src/ui/" own_room " is in no room")
      } else if (own_room == "framework" && to[1] !~ /^(support|platform)$/ && to[2] != "framework")
        finding("the framework may not include \"" named "\": it knows nothing of the program")
      else if (own_room == "models" && (to[1] == "platform" && to[2] == "win32" ||
               to[1] == "ui" && to[2] != "models" && named != "ui/framework/list_model.h"))
        finding("models may not include \"" named "\": it belongs to the windows")
      else if (to[1] == "ui" && (!(to[2] in room) || room[to[2]] > room[own_room]))
        finding("src/ui/" own_room " may not include \"" named "\": it comes after it")
    }
    {
      split($1, from, "/"); own = from[2]
      split($0, quoted, "\""); named = quoted[2]
      if (named ~ /^[a-z]+_ids\.h$/) next
      if (!(own in floor)) { finding("folder src/" own " has no floor"); next }
      if (named ~ /\.\./) { finding("include \"" named "\" leaves its folder: name it from src"); next }
      split(named, to, "/"); other = to[1]
      if (!(other in floor)) { finding("include \"" named "\" names no folder of src"); next }
      if (other != own && floor[other] >= floor[own])
        finding("src/" own " may not include \"" named "\": its floor is not below")
      else if (own == "ui") check_room(from[3], to)
      if (named ~ /^platform\/win32\// && $1 !~ /^src\/(platform\/win32\/|ui\/|run\/main\.cpp)/)
        finding("\"" named "\" belongs to the entry files and the windows")
    }'
}

# A header in angle brackets that ends in .h belongs to the C library, to a library with its own folder, or to
# the OS, which this check looks for.
check_os_headers() {
  local c_library='(assert|ctype|errno|float|inttypes|limits|locale|math|stdarg|stddef|stdint|stdio|stdlib|string|time|wchar|wctype)\.h'
  local libraries='(boost|CLI|nlohmann|gtest|gmock|sanitizer)/'
  local posix='(sys/.*|iconv|malloc|unistd|fcntl|dlfcn|pthread)\.h'
  cpp_files src tests bench | grep -vP "$may_use_windows" | search -E '^\s*#\s*include\s*<.*\.h>' |
    grep -vE "<($c_library|$libraries)|^tests/[^:]+:.*<$posix>" |
    report_text 'OS header outside the OS floor' || true
}

check_com_names() {
  local names='IXMLDOM\w*|IUnknown|IDispatch|IStream|ISequentialStream|BSTR|VARIANT|HRESULT'
  names+='|CoCreateInstance\w*|CoInitialize\w*|CLSIDFromProgID|SysAllocString\w*'
  cpp_files src | grep -vP '^src/(platform/win32|ui(?!/models))/' | search -P "^(?!\s*//)(?:(?!//).)*\b(?:$names)\b" |
    report_text 'COM name outside the OS floor'
}

check_texts() {
  { cpp_files src; files res/en -- -name '*'; } | search -P '[\p{Hiragana}\p{Katakana}\p{Han}]' |
    report_text 'Japanese text: it belongs into res/ja'
}

check_format() {
  cpp_files src tests bench | (cd "$tree" && xargs -r -d '\n' clang-format --dry-run -Werror 2>&1) |
    sed -nE 's/^([^:]+:[0-9]+):[0-9]+: error: .*/\1: not formatted from here on: clang-format -i/p' |
    sort -t: -k1,1 -k2,2n | awk -F: '!seen[$1]++'
}

# Prints each source file of the host build with the files of this tree that it includes, one source per line.
tidy_inputs() {
  local sources
  sources=$(jq -r '.[].file' "$tree/build/host/compile_commands.json" | sed -n "s,^$tree/\(src/.*\),\1,p" | sort -u)
  cpp_files src res | search -oE '^\s*#\s*include\s*"[^"]+"' | awk -F: -v sources="$sources" '
    { split($3, quoted, "\""); name = quoted[2]
      edges[$1] = edges[$1] " " (name ~ /^[a-z]+_ids\.h$/ ? "res/" : "src/") name }
    function visit(file,   next_files, n, i) {
      if (file in seen) return
      seen[file]; line = line " " file
      n = split(edges[file], next_files, " ")
      for (i = 1; i <= n; ++i) visit(next_files[i])
    }
    END {
      count = split(sources, list, "\n")
      for (s = 1; s <= count; ++s) { delete seen; line = ""; visit(list[s]); print substr(line, 2) }
    }'
}

# Runs clang-tidy on one source file unless the file and all its includes are unchanged since it was last
# found clean.
tidy_file() { # SOURCE INCLUDED...
  local stamp=$tree/build/host/tidy/${1//\//_} key output
  cd "$tree"
  # clang-tidy reports a missing include.
  key=$(cat .clang-tidy "$@" 2>/dev/null | sha256sum) || true
  [[ -e $stamp && $(<"$stamp") == "$key" ]] && return
  rm -f "$stamp"
  if output=$(clang-tidy --quiet -p build/host "$1" 2>/dev/null); then
    printf '%s' "$key" >"$stamp"
  else
    grep -E '(error|warning):' <<<"$output" | sed -E "s,^$tree/,,; s,^([^:]+:[0-9]+):[0-9]+: (error|warning): ,\1: ," ||
      printf '%s:1: clang-tidy failed\n' "$1"
  fi
}

# The compilation database must list the current sources, also if nothing was built before.
configure_host() {
  if [[ ! -e $tree/build/host/compile_commands.json ]]; then
    (cd "$tree" && cmake --preset host)
  elif [[ -e $tree/build/host/build.ninja ]]; then
    ninja -C "$tree/build/host" build.ninja
  fi
}

check_tidy() {
  configure_host >/dev/null 2>&1 || { say 'CMakeLists.txt:1: cannot configure the host build'; return; }
  mkdir -p "$tree/build/host/tidy"
  export tree
  export -f tidy_file
  # A finding in a header is printed once, however many sources include it.
  tidy_inputs | xargs -r -P2 -L1 bash -c 'tidy_file "$@"' tidy | sort -u
}

# The patterns must not match their own lines.
check_leftovers() {
  local all
  all=$(files . -- -name '*')
  search -wE 'TOD[O]|FIXM[E]' <<<"$all" | report_text 'unfinished'
  search -E '(^|[^A-Za-z0-9_./:-]|Z:)/([w]ork|[r]oot)/' <<<"$all" | report_text 'path of one machine'
  search -E 'registry[.]npm[j]s|registry[.]yarnpkg|deb[.]debian|pypi[.]org|crates[.]io' <<<"$all" |
    report_text 'address of a registry'
  grep -E '(^|/)package-lock\.json$' <<<"$all" | search -F '"resolved"' | report 'download address in a lock file'
}

check_shell() {
  local file output
  { files .ci scripts -- -name '*.sh' -o -name run; files tests -- -name '*.sh'; } | while read -r file; do
    output=$(bash -n "$tree/$file" 2>&1) ||
      sed -nE "s,^$tree/([^:]+): line ([0-9]+): (.*),\1:\2: \3,p" <<<"$output" | sort -u
  done
}

check_string_ids() {
  local language
  for language in ja en; do
    check_strings_of $language
  done
}

# The resource compiler accepts two texts with the same number and keeps one.
check_id_numbers() {
  [[ -e $tree/res/text_ids.h ]] || return 0
  (cd "$tree" && awk '/^[ \t]*#[ \t]*define[ \t]+IDS_/ {
    if ($3 in name) print FILENAME ":" FNR ": " $2 " has the number of " name[$3]
    name[$3] = $2
  }' res/text_ids.h)
}

check_strings_of() { # LANGUAGE
  local strings=res/$1/strings.rc
  (cd "$tree" && [[ -e res/text_ids.h && -e $strings ]] && awk '
    FILENAME ~ /text_ids\.h$/ && /^[ \t]*#[ \t]*define[ \t]+IDS_[A-Z0-9_]+[ \t]+[0-9]/ { defined[$2] = FNR }
    FILENAME ~ /strings\.rc$/ && match($0, /^[ \t]*IDS_[A-Z0-9_]+/) {
      name = $1; sub(/,.*/, "", name)
      if (name in text) print FILENAME ":" FNR ": second text of " name
      text[name] = FNR
    }
    END {
      for (name in defined)
        if (!(name in text)) print "res/text_ids.h:" defined[name] ": " name " has no text in " FILENAME
      for (name in text) if (!(name in defined)) print FILENAME ":" text[name] ": " name " is not defined"
    }' res/text_ids.h "$strings" | sort) || true
}

# The output of scripts/art.py is checked in and must match the drawings.
check_art() {
  [[ -e $tree/scripts/art.py ]] || return 0
  (cd "$tree" && python3 scripts/art.py --check) || true
}

all_checks() {
  check_floors
  check_os_headers
  check_com_names
  check_texts
  check_string_ids
  check_id_numbers
  check_leftovers
  check_shell
  check_format
  check_art
  check_tidy
}

# --- self-test -------------------------------------------------------------------------------

put() { # FILE, content on standard input
  mkdir -p "$tree/$(dirname "$1")"
  cat >"$tree/$1"
}

clean_tree() {
  cp "$top/.clang-format" "$top/.clang-tidy" "$tree/"
  put res/text_ids.h <<<'#define IDS_HELLO 1'
  put res/ja/strings.rc <<<'    IDS_HELLO "こんにちは"'
  put res/en/strings.rc <<<'    IDS_HELLO "Hello"'
  put src/support/low.h <<<'int Low(int value);  // no HRESULT: a plain number'
  put src/support/low.cpp <<'END'
#include "support/low.h"

#include <stdint.h>

#include "text_ids.h"

int Low(int value) {
  return value + IDS_HELLO;
}
END
  put src/platform/win32/door.h <<<'#include <windows.h>'
  put src/run/main.cpp <<<'#include "platform/win32/door.h"'
  put tests/host/low_test.cpp <<<'#include <unistd.h>'
  put tests/gui/high_test.cpp <<<'#include <windows.h>'
  put build/host/compile_commands.json <<END
[{"directory": "$tree", "file": "$tree/src/support/low.cpp",
  "command": "clang++ -std=c++20 -I$tree/src -I$tree/res -c src/support/low.cpp"}]
END
}

break_every_rule() {
  put src/document/up.cpp <<<'#include "engine/job.h"'
  put src/replace/sibling.cpp <<<'#include "settings/settings.h"'
  put src/platform/port.h <<<'#include "platform/win32/door.h"'
  put src/app/aside.cpp <<<'#include "../ui/window.h"'
  put src/loft/new.cpp <<<'#include "support/low.h"'
  put src/engine/windows.cpp <<<'#include <windows.h>'
  put src/ui/models/rows.h <<<$'#include "ui/framework/window.h"\n\n#include <windows.h>'
  put src/ui/framework/window.h <<<'#include "settings/settings.h"'
  put src/ui/look/picture.cpp <<<'#include "ui/dialogs/dialogs.h"'
  put src/ui/flat.cpp <<<'#include "support/low.h"'
  put tests/host/sdk.cpp <<<'#include <shlobj.h>'
  put src/settings/com.cpp <<<'void Use(IXMLDOMNode* node);'
  put src/document/text.cpp <<<'const char* kText = "保存";'
  put src/support/crooked.cpp <<<'int   crooked ( ) ;'
  put docs/notes.md <<<"TOD""O: see /wor""k/notes, from registry"".npm""js.org"
  put package-lock.json <<<'{"resolved": "somewhere"}'
  put scripts/broken.sh <<<'if true; then'
  put res/text_ids.h <<<$'#define IDS_HELLO 1\n#define IDS_MUTE 2\n#define IDS_TWIN 2'
  put res/ja/strings.rc <<<$'IDS_HELLO "a"\nIDS_HELLO "b"\nIDS_STRAY "c"'
  put res/en/strings.rc <<<$'IDS_HELLO "今日は"\nIDS_MUTE "d"'
  put src/support/low.h <<'END'
inline int Low(int unused) {
  return 0;
}
END
}

self_test() {
  local findings expected failures=0
  tree=$(mktemp -d)
  trap 'rm -rf "$tree"' EXIT
  clean_tree
  findings=$(all_checks)
  [[ -z $findings ]] || { say "found in a clean tree:" "$findings"; failures=1; }
  # A second run without changes must use the stamps and not start clang-tidy.
  findings=$(clang-tidy() { say 'x: error: ran again'; return 1; }; export -f clang-tidy; check_tidy)
  [[ -z $findings ]] || { say "tidy does not remember: $findings"; failures=1; }

  break_every_rule
  findings=$(all_checks)
  while read -r expected; do
    grep -qF -- "$expected" <<<"$findings" || { say "not found: $expected"; failures=1; }
  done <<'END'
src/document/up.cpp:1: src/document may not include "engine/job.h"
src/replace/sibling.cpp:1: src/replace may not include "settings/settings.h"
src/platform/port.h:1: "platform/win32/door.h" belongs
src/app/aside.cpp:1: include "../ui/window.h" leaves
src/loft/new.cpp:1: folder src/loft has no floor
src/engine/windows.cpp:1: OS header
src/ui/models/rows.h:1: models may not include
src/ui/models/rows.h:3: OS header
src/ui/framework/window.h:1: the framework may not include
src/ui/look/picture.cpp:1: src/ui/look may not include
src/ui/flat.cpp:1: src/ui/flat.cpp is in no room
tests/host/sdk.cpp:1: OS header
src/settings/com.cpp:1: COM name
src/document/text.cpp:1: Japanese text
src/support/crooked.cpp:1: not formatted
docs/notes.md:1: unfinished
docs/notes.md:1: path of one machine
docs/notes.md:1: address of a registry
package-lock.json:1: download address
scripts/broken.sh:2: syntax error
res/text_ids.h:2: IDS_MUTE has no text in res/ja/strings.rc
res/text_ids.h:3: IDS_TWIN has the number of IDS_MUTE
res/ja/strings.rc:2: second text of IDS_HELLO
res/ja/strings.rc:3: IDS_STRAY is not defined
res/en/strings.rc:1: Japanese text
src/support/low.h:1: parameter 'unused' is unused
END
  ((failures)) && { say "everything found:" "$findings"; exit 1; }
  say "lint self-test: ok"
}

"$top/scripts/setup.sh"
if [[ ${1-} == --self-test ]]; then
  self_test
  exit
fi
findings=$(all_checks)
if [[ -n $findings ]]; then
  printf '%s\n' "$findings"
  say "lint: $(wc -l <<<"$findings") findings"
  exit 1
fi
say "lint: ok"
