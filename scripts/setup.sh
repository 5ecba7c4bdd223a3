#!/usr/bin/env bash
# Installs what the scripts beside this one need and is not there yet, on Debian 12.
#
# Usage: setup.sh [demo|test]
#   demo  the native build
#   test  everything: also the checks, the cross compilers and Wine (the default)
#
# Ends with 1 when the native build cannot be had. Where something else is missing it says so and
# ends with 0, or with 1 when CI is set.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive

native=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libcups2-dev)
tools=(clang clang-tidy clang-format libclang-rt-14-dev llvm lld cppcheck googletest
  libbenchmark-dev python3 ghostscript zip unzip p7zip-full libarchive-tools cups cups-client
  locales pkg-config fonts-urw-base35 tex-gyre lmodern fontforge-nox fontconfig fonts-dejavu-core
  zlib1g-dev libdeflate-dev doxygen groff-base dpkg-dev mono-mcs)
cross=(g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix)
wine=(wine wine64 wine32:i386 libcups2:i386)

case ${1:-test} in
  demo) tools=() cross=() wine=() ;;
  test) ;;
  *)
    echo "Usage: $0 [demo|test]" >&2
    exit 2
    ;;
esac

if ! command -v dpkg-query >/dev/null; then
  echo "No Debian packages on this host. Needed: ${native[*]} ${tools[*]} ${cross[*]} ${wine[*]}" >&2
  exit 1
fi

# missing PACKAGE...: sets the array of the same name to those that are not installed.
missing() {
  local -A installed=()
  local package architecture status
  while read -r package architecture status; do
    [[ $status == installed ]] || continue
    installed[$package:$architecture]=1
    if [[ $architecture == all || $architecture == "$host" ]]; then
      installed[$package]=1
    fi
  done < <(dpkg-query -W -f '${Package} ${Architecture} ${db:Status-Status}\n')
  missing=()
  for package in "$@"; do
    [[ -n ${installed[$package]:-} ]] || missing+=("$package")
  done
}

host=$(dpkg --print-architecture)
missing "${native[@]}" "${tools[@]}" "${cross[@]}" "${wine[@]}"
if ((${#missing[@]} == 0)); then
  exit 0
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work" # apt reads its lists as a user of its own
log=$work/log
: >"$log"

apt() {
  apt-get -qq -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" >>"$log" 2>&1
}

# One attempt; none may take away what the machine has.
install_from() { # install_from PACKAGE..., with the options of the array `from`
  apt "${from[@]}" install --no-install-recommends --no-remove "$@"
}

# The security archive brings new versions of a library to one architecture before the other, but the
# two that are installed must be the same. The main archive alone fits together.
main=(-o "Dir::Etc::sourcelist=$work/main.list" -o Dir::Etc::sourceparts=/dev/null
  -o "Dir::State::lists=$work/lists")

use_main_archive() {
  from=("${main[@]}")
  [[ ! -d $work/lists ]] || return 0
  mkdir -p "$work/lists/partial"
  local release
  # shellcheck source=/dev/null
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  # shellcheck disable=SC2016 # the variables are apt's own
  apt-get indextargets --format '$(REPO_URI) $(RELEASE)' \
    'Created-By: Packages' 'Component: main' 'Label: Debian' 2>>"$log" |
    awk -v release="$release" '$2 == release { print "deb", $1, release, "main" }' |
    sort -u >"$work/main.list"
  printf 'Package: *\nPin: release l=Debian\nPin-Priority: 1001\n' >"$work/pin"
  apt "${from[@]}" update || true
}

# Taking the libraries of a system back to the versions of the main archive is for machines that are
# thrown away.
may_take_back() {
  [[ -n ${CI:-} || -e /.dockerenv || -e /run/.containerenv ]]
}

install() { # install PACKAGE..., in every way there is
  (($# > 0)) || return 0
  local from=()
  install_from "$@" && return
  use_main_archive
  install_from "$@" && return
  may_take_back || return
  from+=(-o "Dir::Etc::preferences=$work/pin" -o Dir::Etc::preferencesparts=/dev/null
    --allow-downgrades)
  install_from "$@"
}

if ((EUID == 0)); then
  echo "Installing: ${missing[*]}"
  # One index that cannot be had spoils its whole archive, so this machine's own come first.
  apt -o "APT::Architectures=$host" update || true
  if ((${#wine[@]} > 0)) && [[ $host == amd64 ]]; then
    dpkg --add-architecture i386
    apt update || true
  fi
  if ! install "${missing[@]}"; then
    for group in native tools cross wine; do
      declare -n packages=$group
      missing "${packages[@]}"
      install "${missing[@]}" || true
    done
  fi
else
  echo "Only root can install packages." >&2
fi

missing "${native[@]}"
lackedNative=${#missing[@]}
missing "${native[@]}" "${tools[@]}" "${cross[@]}" "${wine[@]}"
if ((${#missing[@]} == 0)); then
  exit 0
fi
{
  awk '/^E:/ && !seen[$0]++' "$log"
  echo "Not to be had: ${missing[*]}"
} >&2
if ((lackedNative > 0)); then
  echo "The native build needs them." >&2
  exit 1
fi
if [[ -n ${CI:-} ]]; then
  exit 1
fi
echo "The native build goes without; the test command names what it did not run." >&2
echo "With CI set, libraries may be taken back to older versions where that helps." >&2
