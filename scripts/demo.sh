#!/usr/bin/env bash
# Shows a font, a page and a command string travel to a printer, from a fresh checkout. The printer is a
# file, so the job can be looked at afterwards.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh demo

captured=$(mktemp -d "${TMPDIR:-/tmp}/zeapi-demo.XXXXXX")
log=$captured/build.log
echo "Building the library and the program zeapi ..."
# A build folder of its own leaves the settings of build/release alone.
if ! { cmake --preset release -B build/demo -DZEAPI_TESTS=OFF -DZEAPI_BENCH=OFF &&
       cmake --build build/demo --target zeapi_program --parallel; } >"$log" 2>&1; then
  tail -n 30 "$log" >&2
  echo "The build failed; the whole log is $log" >&2
  exit 1
fi
zeapi=$PWD/build/demo/bin/zeapi
cp examples/page.pcl examples/digits.sfp "$captured"
cd "$captured"
echo "The printers are files in $captured"

# Says what comes, shows the command as it can be typed, runs it.
step() {
  local argument shown="zeapi"
  for argument in "${@:2}"; do
    [[ $argument =~ ^[A-Za-z0-9_./-]+$ ]] || argument="'$argument'"
    shown+=" $argument"
  done
  printf '\n%s\n  $ %s\n' "$1" "$shown"
  "$zeapi" "${@:2}"
}

step "A font of our own: what is it?" \
  font info digits.sfp
step "It goes into the flash memory of a PJL printer, where pages call it font 10." \
  font send digits.sfp --printer font.prn --pjl --language pcl --target flash1 --id 10 --job "Digits"
step "A page in PCL goes to a PJL printer: two copies, with the name of the job." \
  send page.pcl --printer page.prn --pjl --language pcl --copies 2 --job "Example page"
step "A command string, reset and form feed, as hexadecimal digits ..." \
  string --hex "1B45 0C" --printer reset-hex.prn --pjl --language pcl
step "... and the same one as text with escapes." \
  string --escaped '\eE\f' --printer reset-escaped.prn --pjl --language pcl
cmp reset-hex.prn reset-escaped.prn
echo "Both arrived as the same bytes."

step "What the printer got for the font." \
  job font.prn
step "What the printer got for the page; the rows of the picture are folded into one line." \
  job page.prn --fold
step "What it got for the command string." \
  job reset-escaped.prn

rm page.pcl digits.sfp "$log"
printf '\nThe captured jobs stay here:\n'
printf '  %s\n' "$captured"/*.prn
