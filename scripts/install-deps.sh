#!/usr/bin/env bash
# Installs what building needs, on Debian 12. Does nothing when all of it is there.
# Usage: scripts/install-deps.sh [tool|all]
#   tool  the compiler and the libraries of the library and its tool
#   all   those, and what the tests, the sanitizers, fuzzing and the checks need (the default)
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

tool_packages=(
  g++ cmake ninja-build ccache pkg-config
  libnewmat10-dev libboost-dev
  libcli11-dev nlohmann-json3-dev libcairo2-dev)
check_packages=(
  libgtest-dev libgmock-dev
  clang libclang-rt-14-dev llvm
  clang-format doxygen locales)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

is_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
  local missing=() package
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  echo "installing ${missing[*]}"
  as_root apt-get -qq update
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -y --no-install-recommends install "${missing[@]}" >/dev/null
}

# install_locale NAME CHARSET: the tests of numbers and texts run under it.
install_locale() {
  locale -a | grep -qix "$1" || as_root localedef -i de_DE -f "$2" "de_DE.$2"
}

if ! command -v apt-get >/dev/null; then
  echo "no apt-get here; needed by their Debian names: ${tool_packages[*]} ${check_packages[*]}" >&2
  exit 0
fi
install_packages "${tool_packages[@]}"
if [ "${1:-all}" = all ]; then
  install_packages "${check_packages[@]}"
  install_locale de_DE.utf8 UTF-8
  install_locale de_DE.iso88591 ISO-8859-1
fi
