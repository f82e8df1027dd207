# shellcheck shell=bash
# Sourced by the other scripts: strict mode, the top folder as the working directory, helpers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Put before a program built with a sanitizer: these compilers can't place the sanitizer's shadow
# memory in every random layout of the address space, so it runs without one where that is allowed.
fixed_layout=(setarch "$(uname -m)" -R)
"${fixed_layout[@]}" true 2>/dev/null || fixed_layout=(env)

# configure PRESET [cmake arguments]: quiet unless it fails.
configure() {
  local preset=$1 log=build/$1/configure.log
  shift
  mkdir -p "build/$preset"
  cmake --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log"; return 1; }
}
