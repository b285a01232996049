#!/usr/bin/env bash
# run.sh SECONDS [TARGET...]: fuzzes each target (all by default) for so many seconds with libFuzzer, from the kept inputs,
# the seeds (small drawings cut from those of tests/corpus, so that many are tried a second) and what earlier runs found.
# What it finds to be at fault is written to build/fuzz/found; the exit code is then 1.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
seconds=$1
shift
[ $# -gt 0 ] || set -- text_drawing binary_drawing numbers answers host_calls script

scripts/install.sh clang libclang-rt-14-dev
scripts/build.sh fuzz "${@/#/fuzz_}"
found=$PWD/build/fuzz/found  # some targets work in a folder of their own
mkdir -p "$found"
code=0
for target in "$@"; do
  corpus=$PWD/build/fuzz/corpus/$target
  mkdir -p "$corpus"
  options=(-max_total_time="$seconds" -max_len=16384 -timeout=60 -rss_limit_mb=4096 -artifact_prefix="$found/$target-"
           -print_final_stats=1)
  [ "$target" != script ] || options+=(-close_fd_mask=1)
  dictionary=$PWD/fuzz/dictionaries/$target.dict
  [ ! -f "$dictionary" ] || options+=(-dict="$dictionary")
  seeds=("$PWD/fuzz/inputs/$target")
  [ ! -d "fuzz/seeds/$target" ] || seeds+=("$PWD/fuzz/seeds/$target")
  echo "=== $target"
  "build/fuzz/fuzz/fuzz_$target" "${options[@]}" "$corpus" "${seeds[@]}" 2>"$corpus.log" || code=1
  grep -E 'ERROR|SUMMARY|FAULT|stat::(number|average|new)' "$corpus.log" || true
done
exit $code
