#!/usr/bin/env bash
# run.sh [--peers] [COUNT...]: makes drawings of COUNT entities (100000 and 1000000), runs the everyday job and the walking
# commands on each, and with --peers the same job with the peers (installs libdime-dev and python3-ezdxf where they are missing).
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
peers=
if [ "${1:-}" = --peers ]; then peers=yes; shift; fi
[ $# -gt 0 ] || set -- 100000 1000000

scripts/build.sh release velmar_bench velmar_walks
folder=build/bench
mkdir -p "$folder"
if [ -n "$peers" ]; then
  scripts/install.sh libdime-dev python3-ezdxf
  g++ -std=c++20 -O2 bench/peers/dime_job.cpp -o "$folder/dime_job" -ldime
fi
for count in "$@"; do
  drawing=$folder/$count.dxf
  [ -f "$drawing" ] || python3 bench/make_drawing.py "$count" "$drawing"
  build/release/bench/velmar_bench "$drawing" 7
  build/release/bench/velmar_walks "$drawing" 5
  if [ -n "$peers" ]; then
    echo "dime:"
    "$folder/dime_job" "$drawing" A-WALL A-ANNO-NOTE 2
    echo "ezdxf:"
    /usr/bin/python3 bench/peers/ezdxf_job.py "$drawing" 1
    echo "cp:"
    bash -c "time cp '$drawing' '$drawing.copy'" 2>&1 | grep real
    rm -f "$drawing.copy"
  fi
done
