#!/usr/bin/env bash
# package_deb.sh [BUILD]: makes build/package/velmar_VERSION_ARCHITECTURE.deb of the optimised build, or of another one:
# the program, its manual page, completions for bash, zsh and fish, the documents. Run time libraries become
# dependencies. Needs dpkg-dev.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
build=${1-build/release}

[ -n "${1-}" ] || scripts/build.sh release velmar velmar_pages
mkdir -p build/package
(cd "$build" && ../../scripts/quietly.sh cpack -G DEB -B "$OLDPWD/build/package")
rm -rf build/package/_CPack_Packages
ls build/package/velmar_*.deb
