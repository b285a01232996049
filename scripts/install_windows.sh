#!/usr/bin/env bash
# install_windows.sh: installs what building and testing the Windows programs needs: two cross compilers and Wine for
# both bitnesses, as far as they are missing. Does nothing, and needs neither network nor root, when all are there.
# Where the 32-bit Wine cannot be installed the rest is, and a box of text says so; "install_windows.sh --has-wine32"
# then answers 1.
#
# The 32-bit and the 64-bit Wine need every library they share in one and the same version. So all of it comes in one
# step from the main archive and is then held: a later update of a shared library would otherwise remove the 32-bit half.
set -euo pipefail

scripts=$(dirname "$(readlink -f "$0")")

wine=(wine wine32:i386 wine64)
compilers=(g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools)

installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null || true)" = installed ]; }

say_wine32_is_missing() {
  cat >&2 <<'TEXT'
+----------------------------------------------------------------------------------------------------+
|  THE 32-BIT WINE IS NOT INSTALLED. The 32-bit Windows programs can be built, but NOT TESTED here.  |
|                                                                                                    |
|  Their users are mostly inside 32-bit CAD programs, so ./test counts this as a failure. Set        |
|  VELMAR_ALLOW_NO_WINE32=1 to let it pass with the 64-bit programs alone.                           |
+----------------------------------------------------------------------------------------------------+
TEXT
}

if ! command -v dpkg-query >/dev/null; then
  [ "${1-}" != --has-wine32 ] || exec test -x /usr/lib/wine/wine
  echo "This is no Debian system: Wine and the MinGW-w64 compilers are taken to be installed." >&2
  exit 0
fi
if [ "${1-}" = --has-wine32 ]; then
  installed wine32:i386
  exit
fi

missing=()
for package in "${wine[@]}" "${compilers[@]}"; do
  installed "$package" || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0
if [ "${missing[*]}" = wine32:i386 ] && [ "${VELMAR_ALLOW_NO_WINE32-}" = 1 ]; then
  say_wine32_is_missing
  exit 0
fi

if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Installing them needs root: run this as root, or install sudo." >&2
    exit 1
  fi
  exec sudo "$0"
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
had_i386=$(dpkg --print-foreign-architectures | grep -cx i386 || true)
dpkg --add-architecture i386
echo "Installing ${missing[*]} ..." >&2
if "$scripts/main_archive.sh" "${wine[@]}" "${compilers[@]}" </dev/null >"$log" 2>&1; then
  apt-mark hold wine32:i386 libwine:i386 wine64 libwine >/dev/null
  exit
fi
cat "$log" >&2
say_wine32_is_missing
without_wine32() {
  [ "$had_i386" -gt 0 ] || dpkg --remove-architecture i386
  export DEBIAN_FRONTEND=noninteractive
  apt-get -oAPT::Architectures="$(dpkg --print-architecture)" -qq update
  apt-get install -y --no-install-recommends --no-remove wine wine64 "${compilers[@]}"
}
without_wine32 </dev/null >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
