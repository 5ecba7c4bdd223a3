#!/usr/bin/env bash
# Builds and runs the caller with what pkg-config says about an installed prefix.
# Usage: pkg_config_caller.sh SOURCE PREFIX WORK COMPILER VERSION
set -euo pipefail
source=$1 prefix=$2 work=$3 compiler=$4 version=$5

mkdir -p "$work"
export PKG_CONFIG_LIBDIR="$prefix/lib/pkgconfig"
pkg-config --atleast-version="$version" zeapi
read -ra flags <<<"$(pkg-config --cflags --libs zeapi)"
"$compiler" -std=c99 -o "$work/shared" "$source" "${flags[@]}"
LD_LIBRARY_PATH="$prefix/lib" "$work/shared"

# Linked statically the caller runs without the shared library.
read -ra flags <<<"$(pkg-config --static --cflags --libs zeapi)"
"$compiler" -std=c99 -o "$work/static" "$source" "${flags[@]/#-lzeapi/-l:libzeapi.a}"
"$work/static"
