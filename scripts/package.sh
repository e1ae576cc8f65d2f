#!/usr/bin/env bash
# package.sh: builds the programs and makes the packages in build/package. The same commit gives the same bytes.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build=$top/build/mingw
packages=$top/build/package
tools=x86_64-w64-mingw32
programs=(Quillmoor.exe QuillmoorRun.exe)

SOURCE_DATE_EPOCH=$(git -C "$top" log -1 --format=%ct)
export SOURCE_DATE_EPOCH
export TZ=UTC LC_ALL=C.UTF-8

# The version of the CMake project is the only one.
version=$(sed -nE 's/^project\(Quillmoor VERSION ([0-9.]+) .*/\1/p' "$top/CMakeLists.txt")
name=Quillmoor-$version

# Copies what CMake installs. The programs are stripped; their symbols go to a folder of their own.
stage() {
  local program
  rm -rf "$packages"
  mkdir -p "$packages/$name" "$packages/$name-symbols"
  quietly cmake --install "$build" --prefix "$packages/$name"
  sed -i 's/$/\r/' "$packages/$name/THIRD_PARTY.txt"
  for program in "${programs[@]}"; do
    "$tools-objcopy" --only-keep-debug "$build/bin/$program" "$packages/$name-symbols/$program.debug"
    "$tools-strip" "$packages/$name/$program"
    (cd "$packages/$name-symbols" && "$tools-objcopy" --add-gnu-debuglink="$program.debug" "../$name/$program")
  done
  find "$packages" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
}

make_zip() { "$top/packaging/make_zip.py" "$packages/$name-$1.zip" "$2"; }

home_page() { sed -nE 's/^ *IDS_HOME_PAGE_URL "(.*)"$/\1/p' "$top/res/ja/strings.rc"; }

make_winget_manifest() {
  local file sum target=$packages/winget
  sum=$(sha256sum "$packages/$name-setup.exe" | cut -d' ' -f1)
  mkdir "$target"
  for file in "$top"/packaging/winget/*.in; do
    file=$(basename "$file" .in)
    sed "s,@VERSION@,$version,; s,@HOME_PAGE@,$(home_page),; s,@SHA256@,${sum^^},
      s,@DATE@,$(date -d "@$SOURCE_DATE_EPOCH" +%F)," "$top/packaging/winget/$file.in" \
      >"$target/Tenkowa.Quillmoor.$file"
  done
  mv "$target/Tenkowa.Quillmoor.version.yaml" "$target/Tenkowa.Quillmoor.yaml"
}

"$top/scripts/setup.sh"
cd "$top"
[[ -e $build/build.ninja ]] || quietly cmake --preset mingw
quietly ninja -C "$build" Quillmoor QuillmoorRun
stage
make_zip portable "$packages/$name"
make_zip symbols "$packages/$name-symbols"
"$top/packaging/make_setup.sh" "$packages/$name" "$version" "$packages/$name-setup.exe"
make_winget_manifest
rm -r "$packages/$name-symbols"
(cd "$packages" && sha256sum "$name"-* >SHA256SUMS)
cat "$packages/SHA256SUMS"
