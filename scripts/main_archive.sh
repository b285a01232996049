#!/usr/bin/env bash
# main_archive.sh PACKAGE...: installs packages, as root, from Debian's main archive alone.
#
# A library for two architectures must be installed in one and the same version for both, while the index of security
# updates may serve one architecture only. So the main archive is asked through package lists of its own; a shared
# library that is here in a newer, security version goes back to the main archive's where nothing else will do.
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/sources" "$work/lists/partial"
eval "$(apt-config shell system_list Dir::Etc::sourcelist/f system_sources Dir::Etc::sourceparts/d)"
shopt -s nullglob
# Debian's stanzas but for the security updates, in either of the two ways in which sources are written.
for file in "$system_sources"*.sources; do
  awk -v RS= -v ORS='\n\n' '/Suites:/ && !/-security/' "$file"
done >"$work/sources/main.sources"
for file in "$system_list" "$system_sources"*.list; do
  [ ! -f "$file" ] || awk '$1 == "deb" && !/-security/' "$file"
done >"$work/sources/main.list"
if [ ! -s "$work/sources/main.sources" ] && [ ! -s "$work/sources/main.list" ]; then
  echo "Debian's main archive stands neither in $system_list nor in a file of $system_sources" >&2
  exit 1
fi
printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$(. /etc/os-release && echo "$VERSION_CODENAME")" \
  >"$work/pin"

apt=(env DEBIAN_FRONTEND=noninteractive apt-get -oDir::Etc::sourcelist=/dev/null
     -oDir::Etc::sourceparts="$work/sources" -oDir::State::Lists="$work/lists" -oAPT::Sandbox::User=root)
install=(install -y --no-install-recommends --no-remove)
"${apt[@]}" -qq update
"${apt[@]}" "${install[@]}" "$@" ||
  "${apt[@]}" -oDir::Etc::preferences="$work/pin" "${install[@]}" --allow-downgrades "$@"
