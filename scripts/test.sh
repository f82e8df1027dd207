#!/usr/bin/env bash
# Installs what is needed and runs every check of the project.
# Usage: scripts/test.sh [STEP...]     (release install asan tsan fuzz format docs; all, unless told)
# shellcheck source-path=SCRIPTDIR
source "$(dirname "$0")/common.sh"

# build_and_test PRESET: the closing lines of ctest are kept for the summary.
build_and_test() {
  configure "$1"
  cmake --build --preset "$1"
  "${fixed_layout[@]}" ctest --preset "$1" -j "$(nproc)" 2>&1 |
    tee "build/$1/ctest.log" | grep -vE ' Passed +[0-9.]+ sec$|^ +Start +[0-9]+:'
}

run_release() { build_and_test release; }
run_install() { scripts/check-install.sh; }
run_asan() { build_and_test asan; }
run_tsan() { build_and_test tsan; }
run_fuzz() { scripts/fuzz.sh 5; }
run_format() { scripts/format.sh --check; }
run_docs() { scripts/docs.sh; }

steps=("$@")
[ ${#steps[@]} -gt 0 ] || steps=(format docs release install asan tsan fuzz)
scripts/install-deps.sh all

export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1
export TSAN_OPTIONS=second_deadlock_stack=1
summary=()
for step in "${steps[@]}"; do
  echo "== $step"
  began=$SECONDS
  "run_$step"
  summary+=("$step: done in $((SECONDS - began)) s")
  log=build/$step/ctest.log
  [ ! -f "$log" ] || summary+=("$(grep -E 'tests passed|^Total Test time' "$log")")
done
echo "== all steps passed"
printf '%s\n' "${summary[@]}"
