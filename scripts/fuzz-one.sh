#!/usr/bin/env bash
# Runs one fuzz target that is built already; see fuzz.sh.
# Usage: scripts/fuzz-one.sh TARGET SECONDS
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

target=$1
seconds=$2
corpus=build/fuzz/corpus/$target
found=build/fuzz/found/$target
log=build/fuzz/$target.log
run=("${fixed_layout[@]}" "build/fuzz/fuzz/fuzz_$target" -timeout=20 -rss_limit_mb=512
  -artifact_prefix="$found/")

read -ra seeds <<<"$(sed -n 's|^// Seeds: ||p' "fuzz/$target.cpp")"
[ ${#seeds[@]} -gt 0 ] || { echo "fuzz/$target.cpp names no seeds"; exit 1; }
mkdir -p "$corpus" "$found"
mapfile -t files < <(find "${seeds[@]}" -type f)

# The seeds go in whole first; inputs made from them are kept short, for speed.
if "${run[@]}" "${files[@]}" >"$log" 2>&1 &&
  "${run[@]}" -max_total_time="$seconds" -max_len=8192 -print_final_stats=1 \
    -seed_inputs="$(IFS=,; echo "${files[*]}")" "$corpus" >>"$log" 2>&1; then
  echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs, no fault"
else
  tail -n 60 "$log"
  echo "$target: FAILED; the input is in $found"
  exit 1
fi
