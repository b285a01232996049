#!/usr/bin/env bash
# install.sh [PACKAGE...]: installs what building needs, and the packages named, as far as they are missing.
# Does nothing, and needs neither network nor root, when all are there.
set -euo pipefail

scripts=$(dirname "$(readlink -f "$0")")
packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libxxhash-dev libgtest-dev libgmock-dev
          libfreetype-dev libcairo2-dev libedit-dev fonts-liberation "$@")

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian system: the equivalents of ${packages[*]} are taken to be installed." >&2
  exit 0
fi

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

as_root=(env DEBIAN_FRONTEND=noninteractive)
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Installing them needs root: run this as root, or install sudo." >&2
    exit 1
  fi
  as_root=(sudo "${as_root[@]}")
  sudo -v  # asks for the password, if any, before output is held back
fi

echo "Installing ${missing[*]} ..." >&2
if [ "$(dpkg-query -W -f '${db:Status-Status}' wine32:i386 2>/dev/null || true)" = installed ]; then
  # Updates of the libraries that both Wines share would remove the 32-bit one.
  "$scripts/quietly.sh" "${as_root[@]}" "$scripts/main_archive.sh" "${missing[@]}"
else
  "$scripts/quietly.sh" "${as_root[@]}" apt-get \
    -oAPT::Architectures="$(dpkg --print-architecture)" update
  "$scripts/quietly.sh" "${as_root[@]}" apt-get install -y --no-install-recommends --no-remove "${missing[@]}"
fi
