#!/usr/bin/env bash
# Builds the fuzz preset and lets each target look for inputs that break it, two at a time.
#   scripts/fuzz.sh [SECONDS]    a target, 5 by default
# What a target learned stays in build/fuzz/corpus/ for the next run, its log in build/fuzz/logs/. Inputs
# that broke one lie in build/fuzz/findings/, named after it, and end the script with failure.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-5}
# The targets make and remove thousands of small files a second: in memory where that can be had.
if [[ -z ${TMPDIR:-} && -w /dev/shm ]]; then
  export TMPDIR=/dev/shm
fi
work=$(mktemp -d)
trap 'kill $(jobs -rp) 2>/dev/null || true; rm -rf "$work"' EXIT

quietly() {
  "$@" >"$work/log" 2>&1 || { tail -n 40 "$work/log"; return 1; }
}

run_target() {
  local target=$1
  local options=(-max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 -print_final_stats=1
    -artifact_prefix="build/fuzz/findings/$target-")
  if [[ -f fuzz/dictionaries/$target.dict ]]; then
    options+=(-dict="fuzz/dictionaries/$target.dict")
  fi
  mkdir -p "build/fuzz/corpus/$target" "$work/$target.tmp"
  local code=0 TIMEFORMAT='%U %S'
  {
    time TMPDIR="$work/$target.tmp" "build/fuzz/bin/zeapi_fuzz_$target" "${options[@]}" \
      "build/fuzz/corpus/$target" "fuzz/corpus/$target" >"build/fuzz/logs/$target" 2>&1 || code=$?
  } 2>"$work/$target.time"
  echo "$code" >"$work/$target.code"
}

# The counter's last value in a target's log, "-" where it never came so far.
counter() {
  { grep -o "$2[: ] *[0-9]*" "build/fuzz/logs/$1" || echo -; } | tail -n 1 | grep -o '[0-9]*$\|-'
}

quietly cmake --preset fuzz
quietly cmake --build --preset fuzz
mkdir -p build/fuzz/findings build/fuzz/logs
mapfile -t targets <build/fuzz/fuzz/targets.txt

for target in "${targets[@]}"; do
  while (($(jobs -rp | wc -l) >= 2)); do
    wait -n || true
  done
  run_target "$target" &
done
wait

failed=0
row='%-14s %8s %12s %8s %10s %8s  %s\n'
printf "$row" target 'CPU s' executions edges features inputs findings
for target in "${targets[@]}"; do
  finding=none
  code=$(<"$work/$target.code")
  if [[ $code != 0 ]]; then
    failed=1
    finding=$(grep -o 'build/fuzz/findings/[^ ]*' "build/fuzz/logs/$target" | tail -n 1 || true)
    finding=${finding:-"none, but it ended with code $code: see build/fuzz/logs/$target"}
  fi
  printf "$row" "$target" "$(awk '{ printf "%.0f", $1 + $2 }' "$work/$target.time")" \
    "$(counter "$target" number_of_executed_units)" "$(counter "$target" cov)" \
    "$(counter "$target" ft)" "$(find "build/fuzz/corpus/$target" -type f | wc -l)" "$finding"
done
exit "$failed"
