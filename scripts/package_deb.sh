#!/usr/bin/env bash
# package_deb.sh [BUILD]: makes velmar_VERSION_ARCHITECTURE.deb of the optimised build in build/package, or of another
# one, that is built already, in BUILD/package: the program, its manual page, completions for bash, zsh and fish, the
# documents. Libraries that it needs become dependencies.
set -euo pipefail

top=$(readlink -f "$(dirname "$(readlink -f "$0")")/..")
if [ -n "${1-}" ]; then
  build=$(readlink -f "$1")
  package=$build/package
else
  build=$top/build/release
  package=$top/build/package
  "$top/scripts/build.sh" release velmar velmar_pages
fi
mkdir -p "$package"
rm -f "$package"/velmar_*.deb
(cd "$build" && "$top/scripts/quietly.sh" cpack -G DEB -B "$package")
rm -rf "$package/_CPack_Packages"
ls "$package"/velmar_*.deb
