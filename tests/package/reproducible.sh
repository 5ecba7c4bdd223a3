#!/usr/bin/env bash
# Builds the DLL and its import libraries once more, from a copy of the sources in a folder of another
# name, and wants the bytes of the build that there is.
# Usage: reproducible.sh SOURCE TOOLCHAIN BUILD (TOOLCHAIN is a file of cmake/)
set -euo pipefail
source=$1 toolchain=$2 first=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
  tail -n 20 "$work/log"
  exit 1
}

second=$work/another-place/deeper
mkdir -p "$second/sources"
cp -R "$source/CMakeLists.txt" "$source/cmake" "$source/include" "$source/src" "$second/sources"
# What the first build was told that the bytes depend on.
cache=$first/CMakeCache.txt
mapfile -t told < <(sed -nE 's/^((CMAKE_BUILD_TYPE|CMAKE_UNITY_BUILD[A-Z_]*|ZEAPI_SUPPORT_SITE):.*)/-D\1/p' "$cache")
cmake -S "$second/sources" -B "$second/build" -G Ninja "${told[@]}" -DZEAPI_TOOLS=OFF \
  -DCMAKE_TOOLCHAIN_FILE="$second/sources/cmake/$toolchain" >"$work/log" 2>&1 || fail
cmake --build "$second/build" --target zeapi_shared >>"$work/log" 2>&1 || fail

result=0
for file in bin/ZEAPI1TD.dll lib/libZEAPI1TD.dll.a lib/ZEAPI1TD.lib lib/ZEAPI1TD.def; do
  if ! cmp "$first/$file" "$second/build/$file"; then
    echo "$file: two builds of the same sources differ; look for a time or a path in it"
    result=1
  fi
done
exit $result
