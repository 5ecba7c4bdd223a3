#!/usr/bin/env bash
# Builds the release preset and prints the benchmarks' ratios beside their goals; docs/performance.md
# explains them. The files lie in $TMPDIR, or in /tmp. A missed goal is shown, it is no failure.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

quietly() {
  "$@" >"$work/log" 2>&1 || { tail -n 40 "$work/log"; return 1; }
}

mkdir "$work/pages"
quietly bench/make_pages.sh "$work/pages"
export ZEAPI_BENCH_PAGES=$work/pages
quietly cmake --preset release
quietly cmake --build --preset release --target zeapi_bench
quietly build/release/bin/zeapi_bench --benchmark_out="$work/results" --benchmark_out_format=json
python3 bench/report.py "$work/results"
