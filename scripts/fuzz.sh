#!/usr/bin/env bash
# Builds the fuzz targets and runs each on its seeds and then on inputs of its own making.
# Usage: scripts/fuzz.sh [SECONDS [TARGET...]]     (60 seconds for each of all targets, unless told)
#
# A target names its seeds, files or folders, in its source: "// Seeds: fuzz/seeds/geo tests/golden/geo".
# What it finds goes to build/fuzz/found/, its growing corpus to build/fuzz/corpus/.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

seconds=${1:-60}
shift || true
configure fuzz
cmake --build --preset fuzz
if [ $# -eq 0 ]; then
  mapfile -t targets < <(cd fuzz && ls -- *.cpp | sed 's/\.cpp$//')
  set -- "${targets[@]}"
fi
printf '%s\n' "$@" | xargs -P "$(nproc)" -I{} scripts/fuzz-one.sh {} "$seconds"
