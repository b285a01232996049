#!/usr/bin/env bash
# build.sh PRESET [TARGET...]: configures build/PRESET if that is still to do, and builds the targets (all by default).
# Two runs at the same time wait for each other.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
preset=$1
shift
folder=build/$preset

mkdir -p "$folder"
exec 9>"$folder/.lock"
flock 9
[ -f "$folder/build.ninja" ] || scripts/quietly.sh cmake --preset "$preset"
build=(cmake --build "$folder" -j "$(nproc)" ${1:+--target "$@"})
if [ -t 2 ] && [ ! -f "$folder/src/cli/velmar" ]; then
  "${build[@]}" </dev/null >&2  # a first build takes long enough to be watched
else
  scripts/quietly.sh "${build[@]}" -- --quiet
fi
