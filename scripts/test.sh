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

# Starts the tests of a preset beside what comes next. Those under Wine run one at a time and mostly wait.
running=()
trap 'kill "${running[@]#*:}" 2>/dev/null || true' EXIT
start_tests() {
  ctest --preset "$1" >"build/$1.tests.log" 2>&1 &
  running+=("$1:$!")
}

# Waits for the tests that were started, and shows what they gave.
finish_tests() {
  local each failed=0
  for each in "${running[@]}"; do
    wait "${each#*:}" || failed=1
    step "${each%:*}: results of the tests"
    cat "build/${each%:*}.tests.log"
  done
  running=()
  return $failed
}

have() { command -v "$1" >/dev/null 2>&1; }

step "tools"
scripts/setup.sh test

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
    start_tests "windows-x$bits"
  fi
done

step "dev: build"
build dev
step "dev: test"
rm -rf build/dev/profiles
ctest --preset dev
step "coverage of src/ by the native tests"
scripts/coverage.py build/dev "$lineGoal" "$branchGoal"

if have doxygen; then
  step "reference of the interface"
  scripts/reference.sh
else
  notRun+=("reference: no doxygen")
fi

step "fuzz targets, $fuzzSeconds s each"
scripts/fuzz.sh "$fuzzSeconds"

step "release: build"
build release
start_tests release
finish_tests

if [ ${#notRun[@]} -gt 0 ]; then
  printf '\nNot run here:\n'
  printf '  %s\n' "${notRun[@]}"
  [ -z "${CI:-}" ] || exit 1
fi
step "all tests passed"
