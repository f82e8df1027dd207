#!/usr/bin/env bash
# Makes the reference of the public headers in build/docs/html; a warning is an error.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

mkdir -p build/docs
doxygen Doxyfile
