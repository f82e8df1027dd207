#!/usr/bin/env bash
# Formats all sources, or with --check fails if one isn't formatted.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

how=(-i)
[ "${1:-}" != --check ] || how=(--dry-run -Werror)
find korvelfile tools tests fuzz bench examples -name '*.h' -print0 -o -name '*.cpp' -print0 |
  xargs -0 -P "$(nproc)" -n 20 clang-format "${how[@]}"
