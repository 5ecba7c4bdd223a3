#!/usr/bin/env bash
# Makes the printer files that the benchmarks of the macro fixup read, from the documents in pages/.
# Usage: make_pages.sh FOLDER
set -euo pipefail
folder=$1
pages=$(cd "$(dirname "$0")/pages" && pwd)

make() {
  gs -q -dNOPAUSE -dBATCH -sDEVICE="$1" -r300 -sOutputFile="$folder/$3" "$pages/$2"
}
make laserjet image.ps raster.pcl
make ljet4 text.ps text.pcl
make ps2write text.ps text.ps
make ps2write image.ps image.ps
