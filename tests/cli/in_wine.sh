#!/usr/bin/env bash
# in_wine.sh VELMAR.exe: the tests of the Linux program, which are built already, run the Windows program: it must write
# the same bytes. Then what is Windows's own: names of any script, whole paths, jobs of a batch.
set -euo pipefail

program=$(readlink -f "$1")
top=$(readlink -f "$(dirname "$0")/../..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

tests=
for preset in release dev quick; do
  found=$top/build/$preset/tests/cli_tests
  if [ -x "$found" ]; then tests=$found; break; fi
done
if [ -z "$tests" ]; then
  echo "The tests of the Linux program are missing: scripts/build.sh release cli_tests" >&2
  exit 1
fi

printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$top/scripts/wine.sh" "$program" >"$folder/velmar"
chmod +x "$folder/velmar"

# Left out: what Windows has not (signals, /dev/full, arguments that are no UTF-8) or writes in another way (whole
# paths, the system's words for a failure), and most of the many drawings.
cases='Program/Case.*:Corpus/*1_polylines*:Corpus/*text_negative*:Corpus/*point*:Corpus/*AC1032*:Corpus/*recover01*'
not_here='*/file_shrinks_while_read:*/output_that_fails:*/arguments:*/batch:*/batch_refused:*/doctor:*/script:*/undo'
not_here+=':*/folder_commands:*/hostile_names'
not_here+=':*/render:*/diff_picture'  # made with cairo, which is not there
VELMAR_PROGRAM_FOLDER=$folder "$tests" --gtest_brief=1 --gtest_filter="$cases:-$not_here"

cd "$folder"
velmar() { "$folder/velmar" "$@"; }
failed=0
expect() {
  [ "$2" = "$3" ] && return
  printf '%s: expected "%s", got "%s"\n' "$1" "$3" "$2" >&2
  failed=1
}
corpus=$top/tests/corpus
mkdir 'пл ан'
for name in ä 漢字; do cp "$corpus/ezdxf/1_polylines.dxf" "пл ан/$name.dxf"; done
echo 0 >'пл ан/bad.dxf'
velmar batch Del --arg 9E --save --backup --report r.csv -j 2 'пл ан' >out 2>errors && code=0 || code=$?
expect "a batch" "$code $(tail -1 out | tr -d '\r')" "4 2 done, 1 failed, 2 changed"
expect "its report" "$(grep -c ',done,0,.*,0,0,1,' r.csv)" 2
for name in ä 漢字; do
  cmp "пл ан/$name.dxf.bak" "$corpus/ezdxf/1_polylines.dxf" || failed=1
  expect "$name after it" "$(velmar info "пл ан/$name.dxf" --json | grep -o '"ARC":[0-9]*' | head -1)" '"ARC":21'
done
journal=$(ls r.csv.journals | grep 漢)
velmar undo "r.csv.journals/$journal" >out || failed=1
expect "undo" "$(sed 's/.*\\//' out)" "漢字.dxf: as it was before"
cmp "пл ан/漢字.dxf" "$corpus/ezdxf/1_polylines.dxf" || failed=1
mkdir job
cp "$corpus/acadsharp/sample_AC1015_ascii.dxf" job/a.dwg
expect "a folder command" "$(velmar call PurgeALLFolder job | tr -d '\r')" \
  '0 modified, 0 added, 3 erased in job\a.dwg; saved to job\a.dwg'
printf 'UpperCase ä漢\nGetFolder "C:\\пл ан\\a.dxf"\n' >s.scr
expect "a script" "$(velmar script s.scr | tr '\n' '|')" 'Ä漢|C:\пл ан|'
expect "a word with quotation marks and backslashes" "$(velmar call UpperCase 'C:\a\"b c\\" d\')" 'C:\A\"B C\\" D\'
expect "what doctor looks at" "$(velmar doctor | grep -c '^[a-z]* *\(class\|type library\), ')" 4
if file -b "$program" | grep -q '^PE32 '; then
  truncate -s 5G giant.dxf
  expect "a drawing too large for 32 bits" "$(velmar info giant.dxf 2>&1 | tr -d '\r' | sed 's/.*giant/giant/')" \
    'giant.dxf: cannot be read: its 5368 MB do not fit into what this 32-bit program has of memory; use the 64-bit one'
fi
exit "$failed"
