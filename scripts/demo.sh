#!/usr/bin/env bash
# Installs what is needed, builds the tool and runs the sample job: a free station from four known
# points, 30 new points from the station, and a plot of it all.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

scripts/install-deps.sh tool
configure release -DKORVELFILE_TESTS=OFF -DKORVELFILE_BENCH=OFF
cmake --build --preset release --target korvel

job=examples/free-station
result=build/demo
mkdir -p "$result"
build/release/tools/korvel station "$job/job.plm" --known "$job/known.geo" --leave-one-out \
  --points "$result/points.geo" --plot "$result/plot.svg"
echo
echo "New points: $PWD/$result/points.geo"
echo "Plot:       $PWD/$result/plot.svg"
