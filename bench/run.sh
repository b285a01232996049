#!/usr/bin/env bash
# run.sh [--peers] [COUNT...]: makes drawings of COUNT entities (100000 and 1000000), runs the everyday job and the walking
# commands on each, counts the calls on the host, and times whole programs (programs.sh). With --peers the same with the
# peers beside it; they are installed where they are missing. An hour with both, as two of the peers need minutes each.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
peers=
if [ "${1:-}" = --peers ]; then peers=yes; shift; fi
[ $# -gt 0 ] || set -- 100000 1000000

scripts/build.sh release velmar_bench velmar_walks velmar_host_calls
folder=build/bench
mkdir -p "$folder"
if [ -n "$peers" ]; then
  scripts/install.sh libdime-dev libdxflib-dev python3-ezdxf
  g++ -std=c++20 -O2 bench/peers/dime_job.cpp -o "$folder/dime_job" -ldime
  g++ -std=c++20 -O2 bench/peers/dxflib_job.cpp -o "$folder/dxflib_job" -ldxflib
fi
for count in "$@"; do
  drawing=$folder/$count.dxf
  [ -f "$drawing" ] || python3 bench/make_drawing.py "$count" "$drawing"
  build/release/bench/velmar_bench "$drawing" 7
  build/release/bench/velmar_walks "$drawing" 5
  if [ -n "$peers" ]; then
    echo "dime:"
    "$folder/dime_job" "$drawing" A-WALL A-ANNO-NOTE 2
    echo "dxflib:"
    "$folder/dxflib_job" "$drawing" A-WALL 1
    echo "ezdxf:"
    /usr/bin/python3 bench/peers/ezdxf_job.py "$drawing" 1
    echo "cp:"
    bash -c "time cp '$drawing' '$drawing.copy'" 2>&1 | grep real
    rm -f "$drawing.copy"
  fi
done

echo "calls on the host:"
build/release/bench/velmar_host_calls samples/detail.dxf GetTotalLength '#E0E0928'
build/release/bench/velmar_host_calls samples/detail.dxf Alignement
bench/programs.sh ${peers:+--peers}
