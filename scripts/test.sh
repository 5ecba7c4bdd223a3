#!/usr/bin/env bash
# Proves the whole project from a clean clone: installs what is missing, builds every preset, runs every
# test. What cannot be run on this machine is named; with CI set that is a failure.
set -euo pipefail
cd "$(dirname "$0")/.."

fuzzSeconds=${ZEAPI_FUZZ_SECONDS:-3}
lineGoal=95
branchGoal=90
notRun=()

# A line of the log, with the minutes and seconds since the start.
step() { printf '\n== %d:%02d %s\n' $((SECONDS / 60)) $((SECONDS % 60)) "$*"; }

# Configures and builds a preset; what the compiler says is shown when it fails.
build() {
  local log="build/$1.log"
  mkdir -p build
  if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
    tail -n 60 "$log"
    return 1
  fi
}

run_preset() {
  step "$1: build and test"
  build "$1"
  ctest --preset "$1"
}

# The tests of several presets at once. Those under Wine mostly wait: each preset has one Wine for all.
run_side_by_side() {
  local preset failed=0 running=()
  for preset; do
    ctest --preset "$preset" >"build/$preset.tests.log" 2>&1 &
    running+=($!)
  done
  for preset; do
    wait "${running[0]}" || failed=1
    running=("${running[@]:1}")
    step "$preset: results of the tests"
    cat "build/$preset.tests.log"
  done
  return $failed
}

have() { command -v "$1" >/dev/null 2>&1; }

step "tools"
scripts/setup.sh test

run_preset dev
run_preset release

step "coverage of src/ by the native tests"
build coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage
gcovr --root . --filter 'src/' --object-directory build/coverage --exclude-throw-branches \
  --print-summary --output build/coverage/report.txt \
  --fail-under-line "$lineGoal" --fail-under-branch "$branchGoal"

if have doxygen; then
  step "reference of the interface"
  scripts/reference.sh
else
  notRun+=("reference: no doxygen")
fi

step "fuzz targets, $fuzzSeconds s each"
scripts/fuzz.sh "$fuzzSeconds"

windows=()
for bits in 86 64; do
  if ! have "$([ $bits = 86 ] && echo i686 || echo x86_64)-w64-mingw32-g++-posix"; then
    notRun+=("windows-x$bits: no cross compiler")
    continue
  fi
  step "windows-x$bits: build"
  build "windows-x$bits"
  if ! have wine; then
    notRun+=("windows-x$bits under Wine: no Wine")
  else
    windows+=("windows-x$bits")
  fi
done
run_side_by_side "${windows[@]}"

if [ ${#notRun[@]} -gt 0 ]; then
  printf '\nNot run here:\n'
  printf '  %s\n' "${notRun[@]}"
  [ -z "${CI:-}" ] || exit 1
fi
step "all tests passed"
