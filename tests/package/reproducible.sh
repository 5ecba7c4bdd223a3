#!/usr/bin/env bash
# Builds the DLL and its import libraries twice, from two copies of the sources in folders of different
# names, and wants the same bytes.
# Usage: reproducible.sh SOURCE TOOLCHAIN (a file of cmake/)
set -euo pipefail
source=$1 toolchain=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

build() {  # build FOLDER
  mkdir -p "$1/sources"
  cp -R "$source/CMakeLists.txt" "$source/cmake" "$source/include" "$source/src" "$1/sources"
  cmake -S "$1/sources" -B "$1/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZEAPI_TOOLS=OFF \
    -DCMAKE_TOOLCHAIN_FILE="$1/sources/cmake/$toolchain" >"$1/log" 2>&1 || fail "$1/log"
  cmake --build "$1/build" --target zeapi_import_libraries >>"$1/log" 2>&1 || fail "$1/log"
}

fail() {  # fail LOG
  tail -n 20 "$1"
  exit 1
}

first=$work/a second=$work/another-place/deeper
build "$first"
build "$second"

result=0
for file in bin/ZEAPI1TD.dll lib/libZEAPI1TD.dll.a lib/ZEAPI1TD.lib lib/ZEAPI1TD.def; do
  if ! cmp "$first/build/$file" "$second/build/$file"; then
    echo "$file: two builds of the same sources differ; look for a time or a path in it"
    result=1
  fi
done
exit $result
