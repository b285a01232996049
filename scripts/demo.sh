#!/usr/bin/env bash
# demo.sh VELMAR: shows on the sample drawing what velmar does; every command is printed before it runs.
set -euo pipefail

drawing=samples/detail.dxf
pick=E0E0928    # a line; its layer is measured
erase=E0E13C9   # the line that is erased: one that no other record names

cd "$(dirname "$(readlink -f "$0")")/.."
program=$(readlink -f "$1")
velmar() { "$program" "$@"; }
export LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
edited=$folder/edited.dxf

say() { printf '\n'; printf '# %s\n' "$@"; }
show() {
  printf '$ %s\n' "$1"
  eval "$1"
}

# "FIRST,LAST": the lines of the entity with handle $erase, from its kind to the line before the next record.
erased_lines=$(awk -v handle="$erase" '
  { sub(/\r$/, "") }
  NR % 2 { code = $1 + 0; next }
  code == 0 && found { print first "," NR - 2; exit }
  code == 0 { first = NR - 1 }
  code == 5 && $0 == handle { found = 1 }' "$drawing")
[ -n "$erased_lines" ] || { echo "$drawing has no entity $erase" >&2; exit 1; }

say "What is in the drawing"
show "velmar info $drawing | sed -n '1,12p'"

say "A command that asks: the answer #$pick picks an entity, and its layer is measured"
show "velmar call -d $drawing -a '#$pick' GetTotalLength"

say "A command that edits: erase entity $erase, save under another name"
show "velmar call -d $drawing Del $erase -o $edited"

say "What changed in the file: one run of lines was taken away (d), none changed (c) or put in (a);" \
    "diff begins it where the next entity's lines stop being the same"
set +o pipefail  # diff answers 1 for files that differ
show "diff -a $drawing $edited | grep -av '^[<>]'"
set -o pipefail

say "Lines ${erased_lines/,/ to } are entity $erase; the sample without them is the edited file, byte for byte"
show "sed -n '${erased_lines}p' $drawing | paste - - | sed -n '1,8p'"
show "sed '${erased_lines}d' $drawing | cmp - $edited && echo 'the same'"
