#!/usr/bin/env bash
# Installs the release build into a folder of its own and builds a small program against that copy,
# once through find_package and once through pkg-config.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

prefix=$PWD/build/package/prefix
consumer=$PWD/tests/package
rm -rf build/package
mkdir -p build/package
cmake --install build/release --prefix "$prefix" >build/package/install.log

# Every installed header must be usable from outside, with nothing on the path but the copy.
(cd "$prefix/include" && find korvelfile -name '*.h' -printf '#include "%p"\n' | sort) \
  >build/package/all_headers.h

cmake -S "$consumer" -B build/package/build -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
  -DALL_HEADERS="$PWD/build/package/all_headers.h" >build/package/configure.log
cmake --build build/package/build
echo "find_package: $(build/package/build/consumer)"

pc=$(dirname "$(find "$prefix" -name korvelfile.pc)")
export PKG_CONFIG_PATH=$pc
# shellcheck disable=SC2046  # the flags are words
g++ -std=c++20 "$consumer/consumer.cpp" -o build/package/consumer \
  $(pkg-config --cflags --libs korvelfile) -Wl,-rpath,"$(pkg-config --variable=libdir korvelfile)"
echo "pkg-config:   $(build/package/consumer)"
