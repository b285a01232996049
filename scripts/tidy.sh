#!/usr/bin/env bash
# tidy.sh [PATTERN...]: runs clang-tidy over the source files whose paths match (all by default). Takes some minutes.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/install.sh clang-tidy
scripts/quietly.sh cmake --preset dev -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
run-clang-tidy -quiet -p build/dev -j "$(nproc)" "${@:-^$PWD/(src|tests|bench)/}"
