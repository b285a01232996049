#!/usr/bin/env bash
# install_windows.sh: installs what building and testing the Windows programs needs: two cross compilers and Wine for
# both bitnesses, as far as they are missing. Does nothing, and needs neither network nor root, when all are there.
#
# The 32-bit and the 64-bit Wine need every library they share in one and the same version, while the index of security
# updates is for one architecture only. So all of it comes in one step from the main archive, with package lists of its
# own, and is then held: a later update of a shared library would otherwise remove the 32-bit half.
set -euo pipefail

scripts=$(dirname "$(readlink -f "$0")")
wine=(wine wine32:i386 wine64)
compilers=(g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools)

installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null || true)" = installed ]; }

missing=()
for package in "${wine[@]}" "${compilers[@]}"; do
  installed "$package" || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Installing them needs root: run this as root, or install sudo." >&2
    exit 1
  fi
  exec sudo "$0"
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/sources" "$work/lists/partial"
eval "$(apt-config shell system_sources Dir::Etc::sourceparts/d)"
for file in "$system_sources"*.sources; do
  # Only the paragraph of the main archive: the one that names the -updates suite, or no suite of security updates.
  awk -v RS= -v ORS='\n\n' '/Suites:/ && !/-security/' "$file"
done > "$work/sources/main.sources"
if ! grep -q '^URIs:' "$work/sources/main.sources"; then
  echo "No paragraph of Debian's main archive found in $system_sources*.sources" >&2
  exit 1
fi

dpkg --add-architecture i386
apt=(env DEBIAN_FRONTEND=noninteractive apt-get -oDir::Etc::sourcelist=/dev/null
     -oDir::Etc::sourceparts="$work/sources" -oDir::State::Lists="$work/lists" -oAPT::Sandbox::User=root)

echo "Installing ${missing[*]} ..." >&2
"$scripts/quietly.sh" "${apt[@]}" -qq update
if ! "${apt[@]}" install -y --no-install-recommends --no-remove "${wine[@]}" "${compilers[@]}" \
     </dev/null >"$work/first.log" 2>&1; then
  # Some shared library is already here in a newer, security version: back to the main archive's.
  printf 'Package: *\nPin: release n=bookworm\nPin-Priority: 1001\n' > "$work/pin"
  if ! "${apt[@]}" -oDir::Etc::preferences="$work/pin" install -y --no-install-recommends --no-remove \
       --allow-downgrades "${wine[@]}" "${compilers[@]}" </dev/null >"$work/second.log" 2>&1; then
    cat "$work/first.log" "$work/second.log" >&2
    exit 1
  fi
fi
apt-mark hold wine32:i386 libwine:i386 wine64 libwine >/dev/null
