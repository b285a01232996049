#!/usr/bin/env bash
# docs/contact_sheet.sh: draws docs/pictures/corpus.png anew, the drawings of the tests side by side. The program is built
# already, or is the one that VELMAR names.
set -euo pipefail

top=$(readlink -f "$(dirname "$0")/..")
program=${VELMAR:-$(ls -t "$top"/build/*/src/cli/velmar | head -1)}
mkdir -p "$top/docs/pictures"
cd "$top/tests/corpus"
mapfile -t drawings < <(find . -iname '*.dxf' ! -path './bad/*' -printf '%P\n' | LC_ALL=C sort)
"$program" render "${drawings[@]}" --size 1800x1350 --all-layers -o "$top/docs/pictures/corpus.png"
