#!/usr/bin/env bash
# tidy.sh [PATTERN...]: runs clang-tidy over the joined sources whose paths match, "velmar_drawing" for those of that
# folder; all by default. Not over tests, bench and fuzz, which would double the time, nor over what only Windows
# compiles, which scripts/cppcheck.sh looks at.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/install.sh clang clang-tidy
scripts/quietly.sh cmake --preset tidy
scripts/quietly.sh run-clang-tidy -quiet -p build/tidy -j "$(nproc)" "$@"
