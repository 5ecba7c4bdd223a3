#!/usr/bin/env bash
# Makes the reference of the interface from include/zeapi.h: build/reference/index.html. Fails where something
# public, or an argument of it, has no text.
set -euo pipefail
cd "$(dirname "$0")/.."

if ! command -v doxygen >/dev/null; then
  echo "No doxygen on this machine (Debian: doxygen); scripts/setup.sh installs it." >&2
  exit 1
fi
rm -rf build/reference
mkdir -p build/reference
doxygen docs/Doxyfile
echo "build/reference/index.html"
