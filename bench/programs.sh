#!/usr/bin/env bash
# programs.sh [--peers]: times whole programs with hyperfine: starting, drawing pictures, a batch of a thousand small
# drawings with one job and with two. With --peers also what others take for the same. Writes build/bench/programs.md.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/install.sh hyperfine
scripts/build.sh release velmar
folder=$PWD/build/bench
velmar=$PWD/build/release/src/cli/velmar
mkdir -p "$folder"
cd "$folder"

rm -rf small
mkdir small
for i in $(seq 1000); do cp ../../tests/corpus/ezdxf/1_polylines.dxf "small/$i.dxf"; done
[ -f 100000.dxf ] || python3 ../../bench/make_drawing.py 100000 100000.dxf

table() {  # NAME HYPERFINE-ARGUMENT...
  local name=$1
  shift
  hyperfine --export-markdown "$name.md" "$@" >&2
  cat "$name.md"
  echo
}
{
  starts=(--command-name "velmar call RUP" "$velmar call RUP 1.21 1")
  [ "${1-}" != --peers ] || starts+=(--command-name "python3, import ezdxf" "/usr/bin/python3 -c 'import ezdxf'")
  table starts -N --warmup 1 --runs 20 "${starts[@]}"
  table pictures -N --warmup 1 --runs 5 \
    --command-name "picture of 100,000 entities, PNG" "$velmar render 100000.dxf -o picture.png" \
    --command-name "SVG" "$velmar render 100000.dxf -o picture.svg" \
    --command-name "PDF" "$velmar render 100000.dxf -o picture.pdf"
  command="ColorToLayer --arg 256 --arg Moved --arg AcDbLine"
  once="ColorToLayer 256 Moved AcDbLine"
  many=(--command-name "batch of 1,000, one job" "$velmar batch -j 1 $command small --output out"
        --command-name "two jobs" "$velmar batch -j 2 $command small --output out")
  [ "${1-}" != --peers ] || many+=(--command-name "cp -r" "cp -r small out")
  table batches --warmup 1 --runs 5 --prepare "rm -rf out" "${many[@]}"
  slow=(--command-name "a program for each" "mkdir out; for f in small/*; do $velmar call -d \$f $once -o out/\${f##*/}; done")
  [ "${1-}" != --peers ] || slow+=(--command-name "ezdxf, one process" "/usr/bin/python3 ../../bench/peers/ezdxf_batch.py small out")
  table slow_batches --runs 1 --prepare "rm -rf out" "${slow[@]}"
} >programs.md
cat programs.md
rm -rf small out picture.*
