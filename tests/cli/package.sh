#!/usr/bin/env bash
# package.sh BUILD: makes the package for Debian, unpacks it, and uses what is in it.
set -euo pipefail

top=$(readlink -f "$(dirname "$(readlink -f "$0")")/../..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failed=0
expect() {
  [ "$2" = "$3" ] && return
  printf '%s: expected "%s", got "%s"\n' "$1" "$3" "$2" >&2
  failed=1
}

package=$("$top/scripts/package_deb.sh" "$1")
expect "its dependencies on the C and C++ libraries" \
  "$(dpkg-deb -f "$package" Depends | tr ',' '\n' | grep -cE 'libc6|libstdc\+\+6')" 2
expect "its architecture" "$(dpkg-deb -f "$package" Architecture)" "$(dpkg --print-architecture)"

# Into a root of its own, with a database of its own; the dependencies are those of this machine.
mkdir -p "$folder/root/var/lib/dpkg/"{info,updates,triggers}
touch "$folder/root/var/lib/dpkg/status" "$folder/root/var/lib/dpkg/available"
if [ "$(id -u)" = 0 ]; then
  dpkg --root="$folder/root" --force-depends --install "$package" >"$folder/log" 2>&1 ||
    { cat "$folder/log" >&2; failed=1; }
else
  dpkg-deb -x "$package" "$folder/root"
fi
usr=$folder/root/usr
expect "files that others may not write" "$(find "$usr" -type f -perm /022 | wc -l)" 0

drawing=$top/tests/corpus/ezdxf/1_polylines.dxf
expect "the program" "$("$usr/bin/velmar" info --check "$drawing")" "$drawing: no faults"
expect "its version" "$("$usr/bin/velmar" --version | head -1)" "velmar $(dpkg-deb -f "$package" Version)"

gunzip -c "$usr/share/man/man1/velmar.1.gz" >"$folder/velmar.1"
expect "methods without a paragraph in the manual page" \
  "$("$usr/bin/velmar" methods --json | grep -o '"name":"[A-Za-z0-9]*","subject' | cut -d'"' -f4 |
    while read -r name; do grep -q "^..B$name..R" "$folder/velmar.1" || echo "$name"; done)" ""
if command -v groff >/dev/null; then
  expect "what groff says of the manual page" "$(groff -man -Tutf8 -ww -z "$folder/velmar.1" 2>&1)" ""
fi

. "$usr/share/bash-completion/completions/velmar"
COMP_WORDS=(velmar call RotateAllT) COMP_CWORD=2 COMPREPLY=()
_velmar
expect "completion of a method" "${COMPREPLY[*]}" RotateAllText
exit "$failed"
