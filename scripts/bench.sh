#!/usr/bin/env bash
# Builds and runs the benchmarks; each prints its ratios to a floor measured in the same run.
# Usage: scripts/bench.sh [NAME...]     (bench/NAME.cpp; all, unless told)
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

configure release
cmake --build --preset release
if [ $# -eq 0 ]; then
  mapfile -t names < <(cd bench && ls -- *.cpp | sed 's/\.cpp$//')
  set -- "${names[@]}"
fi
for name in "$@"; do
  echo "== $name"
  "build/release/bench/bench_$name"
done
