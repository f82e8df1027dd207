#!/usr/bin/env bash
# Configures and builds one preset.
# Usage: scripts/build.sh [PRESET [TARGET...]]     (PRESET: dev, release, asan, tsan, fuzz)
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

preset=${1:-dev}
shift || true
configure "$preset"
cmake --build --preset "$preset" ${1:+--target "$@"}
